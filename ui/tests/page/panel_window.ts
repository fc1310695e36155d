// What the program does with the page of a window that shows one panel.

// The methods that it offers there at least.
export const panelWindowMethods = [
  "updateSpammer", "updateKeySpam", "removeKeySpamTarget", "setKeySpamChordMode", "reassignKey",
  "startSpammer", "stopSpammer", "startKeySpam", "stopKeySpam",
  "resizeWindow", "beginWindowDrag", "closeThisWindow",
];

// What it puts in front of the end of the body.
export const panelScript = (id: string, theme: string) => `<script>
  if (typeof applyTheme === "function") applyTheme(${JSON.stringify(theme)});
  document.getElementById("theme-select").value =
    typeof currentThemeKey !== "undefined" ? currentThemeKey : "ravelin";
  document.querySelectorAll(".panel").forEach((panel) => (panel.style.display = "none"));
  const panel = document.getElementById(${JSON.stringify(id)});
  panel.style.display = "block";
  panel.style.borderRadius = "0";
  panel.style.boxShadow = "none";
  panel.style.border = "none";
  const header = panel.querySelector(".panel-header");
  header.style.cursor = "move";
  header.addEventListener("mousedown", (event) => {
    if (event.button === 0 && !event.target.closest(".panel-btn")) beginWindowDrag("");
  });
  document.body.style.padding = "0";
  document.getElementById("dashboard").style.gap = "0";
  document.body.style.visibility = "visible";
  if (typeof resizeHostWindow === "function") resizeHostWindow();
</script>`;
