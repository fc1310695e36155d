// Things dragged onto the page from other programs. Left to itself a browser goes to a file or link
// that is dropped on it, and the page with its tools is gone.

const fields = "textarea, input:not([type=checkbox], [type=radio], [type=range])";

// Selected text may be dropped into a field, which takes it as if it were pasted. Links bring their
// text along, so it counts as text only when it comes alone.
function isTextForField(event: DragEvent): boolean {
  const types = event.dataTransfer?.types ?? [];
  const onlyText =
    types.includes("text/plain") && !types.includes("Files") && !types.includes("text/uri-list");
  return onlyText && event.target instanceof Element && event.target.matches(fields);
}

export function refuseDrop(event: DragEvent): void {
  if (isTextForField(event)) return;
  event.preventDefault();
  if (event.dataTransfer) event.dataTransfer.dropEffect = "none";
}
