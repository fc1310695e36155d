import { afterAll, afterEach, beforeAll, expect } from "vitest";
import { launch, View, type ViewOptions } from "./harness";
import type { Browser } from "playwright-core";

// Gives the tests of a file a browser: what is returned opens a view, which is closed after its
// test. A test in whose view the page raised an error fails.
export function useViews(usual: ViewOptions = {}): (options?: ViewOptions) => Promise<View> {
  let browser: Browser;
  let opened: View[] = [];

  beforeAll(async () => void (browser = await launch()));
  afterAll(() => browser.close());
  afterEach(async () => {
    const errors = opened.flatMap((view) => view.errors);
    await Promise.all(opened.map((view) => view.close()));
    opened = [];
    expect(errors).toEqual([]);
  });

  return async (options = {}) => {
    const view = await View.open(browser, { ...usual, ...options });
    opened.push(view);
    return view;
  };
}

// The same, for pages that a program answers: waits until they show its state.
export function useLiveViews(usual: ViewOptions = {}): (options?: ViewOptions) => Promise<View> {
  const open = useViews(usual);
  return async (options) => {
    const view = await open(options);
    await view.page.locator(".bar ul").waitFor();
    return view;
  };
}
