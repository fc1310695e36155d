import { describe, expect, test } from "vitest";
import { mergeOrder, moveBy, panelIds } from "../../src/text/panel_order";

describe("the order of the panels", () => {
  test("is the usual one when nothing is saved", () => {
    expect(mergeOrder([])).toEqual(panelIds);
  });

  test("begins with the saved panels; unknown and repeated ones are passed over", () => {
    expect(mergeOrder(["panel-ui", "Panel-ui", "", "panel-ui", "panel-tracker"])).toEqual([
      "panel-ui",
      "panel-tracker",
      "panel-spammer",
      "panel-keyspam",
      "panel-profile",
    ]);
  });
});

describe("moving a panel", () => {
  test("swaps it with its neighbour", () => {
    expect(moveBy(panelIds, "panel-keyspam", -1, [])?.slice(0, 2)).toEqual([
      "panel-keyspam",
      "panel-spammer",
    ]);
  });

  test("stops at both ends", () => {
    expect(moveBy(panelIds, "panel-spammer", -1, [])).toBeNull();
    expect(moveBy(panelIds, "panel-ui", 1, [])).toBeNull();
  });

  test("goes past panels that are not shown", () => {
    const moved = moveBy(panelIds, "panel-spammer", 1, ["panel-keyspam"]);
    expect(moved?.slice(0, 3)).toEqual(["panel-keyspam", "panel-tracker", "panel-spammer"]);
    expect(moveBy(panelIds, "panel-keyspam", -1, ["panel-spammer"])).toBeNull();
  });
});
