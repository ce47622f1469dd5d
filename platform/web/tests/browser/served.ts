import type { TestProject } from "vitest/node";
// @ts-expect-error: plain JavaScript, as it runs without tools
import { serve } from "../../scripts/serve.mjs";

declare module "vitest" {
    export interface ProvidedContext {
        address: string;
    }
}

/// The page as it was built, below a folder as on a shared host.
export default async function setup(project: TestProject): Promise<() => void> {
    const { server, address } = await serve(new URL("../../dist", import.meta.url).pathname);
    project.provide("address", `${address}page/`);
    return () => {
        server.closeAllConnections();
        server.close();
    };
}
