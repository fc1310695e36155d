import { writeFile } from "node:fs/promises";
import { join } from "node:path";
import type { Plugin } from "vite";
import { vendorPackages } from "./vendor_scripts";

const packageOf = /node_modules\/((?:@[^/]+\/)?[^/]+)\//;

// Writes which npm packages the page is made of, beside it: packages.json, which is not shipped.
export function bundledPackages(): Plugin {
  const found = new Set<string>(vendorPackages);
  return {
    name: "bundled-packages",
    apply: "build",
    generateBundle(_options, bundle) {
      for (const file of Object.values(bundle)) {
        if (file.type !== "chunk") continue;
        for (const [id, module] of Object.entries(file.modules)) {
          const name = packageOf.exec(id)?.[1];
          if (name !== undefined && module.renderedLength > 0) found.add(name);
        }
      }
    },
    async writeBundle(options) {
      const list = JSON.stringify([...found].sort(), null, 2);
      await writeFile(join(options.dir ?? "dist", "packages.json"), `${list}\n`);
    },
  };
}
