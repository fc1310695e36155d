import { defineConfig } from "vitest/config";

// Drives the built page in a real browser, one browser a file.
export default defineConfig({
  test: {
    include: ["tests/page/**/*.test.ts"],
    environment: "node",
    // More would only wait for each other: a browser draws without a graphics card here.
    maxWorkers: 2,
    minWorkers: 1,
    testTimeout: 60_000,
    hookTimeout: 60_000,
    expect: { poll: { timeout: 15_000 } },
  },
});
