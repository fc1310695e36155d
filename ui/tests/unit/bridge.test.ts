import { expect, test } from "vitest";
import { Bridge } from "../../src/bridge/bridge";

test("a call passes its arguments on and gives the answer", async () => {
  const host = { setAppSetting: async (key: string, on: string) => `${key}=${on}` };
  const answer = await new Bridge(host).call("setAppSetting", "alwaysOnTop", "1");
  expect(answer).toEqual({ ok: true, value: "alwaysOnTop=1" });
});

test("a missing method is an answer, not an error", async () => {
  const bridge = new Bridge({});
  expect(bridge.has("startSpammer")).toBe(false);
  expect(await bridge.call("startSpammer")).toMatchObject({ ok: false, reason: "absent" });
});

test("a rejected call is an answer with the message", async () => {
  const host = { startSpammer: () => Promise.reject("invalid stoi argument") };
  expect(await new Bridge(host).call("startSpammer")).toEqual({
    ok: false,
    reason: "rejected",
    message: "invalid stoi argument",
  });
});

test("a method that throws at once is no different", async () => {
  const host = {
    startSpammer: () => {
      throw new Error("gone");
    },
  };
  expect(await new Bridge(host).call("startSpammer")).toMatchObject({ message: "gone" });
});
