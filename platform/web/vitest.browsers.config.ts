import { defineConfig } from "vitest/config";

export default defineConfig({
    test: { include: ["tests/browser/**/*.test.ts"], fileParallelism: false, testTimeout: 40_000, hookTimeout: 60_000, globalSetup: ["tests/browser/served.ts"] },
});
