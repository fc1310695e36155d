import { defineConfig } from "vitest/config";

// Drives the built page in a real browser; one browser at a time.
export default defineConfig({
  test: {
    include: ["tests/page/**/*.test.ts"],
    environment: "node",
    fileParallelism: false,
    testTimeout: 60_000,
    hookTimeout: 60_000,
    expect: { poll: { timeout: 15_000 } },
  },
});
