import { mkdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { chromium, type Browser, type Page } from "playwright-core";
import { installFakeProgram, type FakeProgram, type ProgramOptions } from "./fake_program";

const built = process.env["PAGE_DIR"] ?? "dist";
const shots = process.env["SHOT_DIR"] ?? "../build/screenshots";
const reference = '<script src="vendor/Sortable.min.js"></script>';

export interface ViewOptions extends ProgramOptions {
  width?: number;
  height?: number;
  // Leaves the script file of its own out, as when its folder is missing.
  withoutVendor?: boolean;
  // Put in front of the last "</body>", as for a window of one panel.
  appended?: string;
  theme?: string;
  // Pixels of the screen for one of the page.
  pixelRatio?: number;
}

export function launch(): Promise<Browser> {
  const executablePath = process.env["CHROMIUM"] ?? "/usr/bin/chromium-headless-shell";
  return chromium.launch({
    executablePath,
    args: ["--no-sandbox", "--disable-gpu"],
    // As in the program's window, where they take their part of the width.
    ignoreDefaultArgs: ["--hide-scrollbars"],
  });
}

// The page's text as the program hands it to the view.
export function pageText(options: ViewOptions = {}): string {
  let html = readFileSync(join(built, "index.html"), "utf8");
  if (!options.withoutVendor) {
    const script = readFileSync(join(built, "vendor", "Sortable.min.js"), "utf8");
    const at = html.indexOf(reference);
    html = `${html.slice(0, at)}<script>${script}</script>${html.slice(at + reference.length)}`;
  }
  if (options.appended) {
    const at = html.lastIndexOf("</body>");
    html = `${html.slice(0, at)}${options.appended}${html.slice(at)}`;
  }
  return html;
}

export class View {
  readonly errors: string[] = [];

  constructor(readonly page: Page) {
    page.on("pageerror", (error) => this.errors.push(error.message));
  }

  static async open(browser: Browser, options: ViewOptions = {}): Promise<View> {
    const { width = 420, height = 560, pixelRatio = 1 } = options;
    const context = await browser.newContext({
      viewport: { width, height },
      deviceScaleFactor: pixelRatio,
    });
    const page = await context.newPage();
    page.setDefaultTimeout(20_000);
    const view = new View(page);
    await page.addInitScript(installFakeProgram, options);
    await page.goto("about:blank");
    await page.setContent(pageText(options));
    if (options.theme) await page.evaluate((key) => window.applyTheme?.(key), options.theme);
    return view;
  }

  async close(): Promise<void> {
    await this.page.context().close();
  }

  // Changes what the program reports, as when a hotkey was pressed.
  async report(change: Partial<FakeProgram>): Promise<void> {
    await this.page.evaluate((given) => {
      const { program } = window as unknown as { program: FakeProgram };
      for (const [key, value] of Object.entries(given)) {
        const old = (program as unknown as Record<string, unknown>)[key];
        const merge = typeof value === "object" && !Array.isArray(value);
        if (merge) Object.assign(old as object, value);
        else (program as unknown as Record<string, unknown>)[key] = value;
      }
    }, change as Record<string, unknown>);
  }

  async program(): Promise<FakeProgram> {
    return this.page.evaluate(() => {
      const { program } = window as unknown as { program: FakeProgram };
      return JSON.parse(JSON.stringify(program)) as FakeProgram;
    });
  }

  // The arguments of every call of one method so far.
  async calls(name: string): Promise<unknown[][]> {
    return (await this.program()).calls.filter((call) => call.name === name).map((call) => call.args);
  }

  async shot(name: string, fullPage = false): Promise<void> {
    mkdirSync(shots, { recursive: true });
    await this.page.screenshot({ path: join(shots, `${name}.png`), fullPage });
  }
}
