import { defineConfig } from "vitest/config";

export default defineConfig({
    test: { include: ["tests/browser/**/*.test.ts"], fileParallelism: false, testTimeout: 60_000, hookTimeout: 60_000, expect: { poll: { timeout: 15_000 } }, globalSetup: ["tests/browser/served.ts"] },
});
