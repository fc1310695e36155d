import { copyFile, mkdir } from "node:fs/promises";
import { createRequire } from "node:module";
import { dirname, join } from "node:path";
import type { Plugin } from "vite";

export const vendorPackages = ["sortablejs"];

// Scripts that stay files of their own beside the page; the program inlines them when it reads it.
export function vendorScripts(): Plugin {
  return {
    name: "vendor-scripts",
    apply: "build",
    async writeBundle(options) {
      const target = join(options.dir ?? "dist", "vendor", "Sortable.min.js");
      const require = createRequire(import.meta.url);
      const folder = dirname(require.resolve("sortablejs/package.json"));
      await mkdir(dirname(target), { recursive: true });
      await copyFile(join(folder, "Sortable.min.js"), target);
    },
  };
}
