import { expect, test } from "vitest";
import { moveScript, tidyReferences } from "../../bundle/classic_script";

test("the code moves to the end of the body and runs at once", () => {
  const page =
    '<head><script type="module" crossorigin>run("$1")</script></head><body><p></p></body>';
  expect(moveScript(page)).toBe(
    '<head></head><body><p></p><script>run("$1")</script>\n  </body>',
  );
});

test("a page without code is refused", () => {
  expect(() => moveScript("<body></body>")).toThrow();
  expect(() => moveScript('<script type="module"></script><body></body>')).toThrow();
});

test("a script reference reads exactly as the program looks for it", () => {
  expect(tidyReferences('<script  src="a.js"></script>')).toBe('<script src="a.js"></script>');
});
