import type { Plugin } from "vite";

const moduleScript = /<script type="module"[^>]*>([\s\S]*?)<\/script>/;

// The program appends a script of its own in front of the last "</body>", and that script expects
// the page's elements and functions to be there. A module script runs only after the whole
// document has been read, so the page's code goes to the end of the body as a classic script.
export function classicScript(): Plugin {
  return {
    name: "classic-script",
    apply: "build",
    enforce: "post",
    generateBundle: {
      // After the code has been inlined.
      order: "post",
      handler(_options, bundle) {
        for (const file of Object.values(bundle)) {
          if (file.type === "asset" && file.fileName.endsWith(".html")) {
            file.source = tidyReferences(moveScript(String(file.source)));
          }
        }
      },
    },
  };
}

export function moveScript(html: string): string {
  const found = moduleScript.exec(html);
  if (!found?.[1]) throw new Error("the page holds no inlined module script");
  const rest = html.slice(0, found.index) + html.slice(found.index + found[0].length);
  const end = rest.lastIndexOf("</body>");
  if (end < 0) throw new Error("the page has no body");
  return `${rest.slice(0, end)}<script>${found[1]}</script>\n  ${rest.slice(end)}`;
}

// The program looks for a script reference by its exact text, with a single blank.
export function tidyReferences(html: string): string {
  return html.replace(/<script\s+src=/g, "<script src=");
}
