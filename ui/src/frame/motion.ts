// Whether things may move: neither the system nor the user of the page has asked for stillness.
export function motionAllowed(): boolean {
  return (
    document.documentElement.dataset["motion"] !== "off" &&
    !window.matchMedia("(prefers-reduced-motion: reduce)").matches
  );
}
