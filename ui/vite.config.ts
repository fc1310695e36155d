import { svelte } from "@sveltejs/vite-plugin-svelte";
import { defineConfig } from "vitest/config";
import { viteSingleFile } from "vite-plugin-singlefile";
import { bundledPackages } from "./bundle/bundled_packages";
import { classicScript } from "./bundle/classic_script";
import { vendorScripts } from "./bundle/vendor_scripts";

// `npm run build -- --outDir PATH` puts the page elsewhere.
export default defineConfig({
  plugins: [svelte(), viteSingleFile(), classicScript(), vendorScripts(), bundledPackages()],
  build: {
    target: "chrome109",
    outDir: "dist",
    emptyOutDir: true,
    modulePreload: false,
    rollupOptions: { output: { format: "iife" } },
  },
  test: {
    include: ["tests/unit/**/*.test.ts"],
    environment: "node",
  },
  // The state classes are compiled for the browser in tests as well, so that they behave as shipped.
  ...(process.env["VITEST"] ? { resolve: { conditions: ["browser"] } } : {}),
});
