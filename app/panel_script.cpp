#include "app/panel_script.h"

#include "support/text.h"

namespace ravelin {
namespace {

constexpr std::string_view bodyEnd = "</body>";

constexpr std::string_view themeAndHiding = R"js(
  var select = document.getElementById("theme-select");
  if (select) select.value = typeof currentThemeKey !== "undefined" ? currentThemeKey : "ravelin";
  document.querySelectorAll(".panel").forEach(function (other) { other.style.display = "none"; });
)js";

constexpr std::string_view showing = R"js(
  if (panel) {
    panel.style.display = "block";
    panel.style.borderRadius = "0";
    panel.style.boxShadow = "none";
    panel.style.border = "none";
    var header = panel.querySelector(".panel-header");
    if (header) {
      header.style.cursor = "move";
      header.addEventListener("mousedown", function (event) {
        if (event.button === 0 && !event.target.closest(".panel-btn")) beginWindowDrag("");
      });
    }
  }
  document.body.style.padding = "0";
  var dashboard = document.getElementById("dashboard");
  if (dashboard) dashboard.style.gap = "0";
  document.body.style.visibility = "visible";
  if (typeof resizeHostWindow === "function") resizeHostWindow();
})();
)js";

// A JSON string that cannot end the script element around it.
std::string scriptString(std::string_view text) {
    std::string quoted = jsonQuote(text);
    for (auto at = quoted.find('<'); at != std::string::npos; at = quoted.find('<', at))
        quoted.replace(at, 1, "\\u003c");
    return quoted;
}

}  // namespace

std::string panelScript(std::string_view panelId, std::string_view themeKey) {
    std::string script = "<script>\n(function () {\n  if (typeof applyTheme === \"function\") ";
    script += "applyTheme(" + scriptString(themeKey) + ");";
    script += themeAndHiding;
    script += "  var panel = document.getElementById(" + scriptString(panelId) + ");";
    script += showing;
    script += "</script>";
    return script += bodyEnd;
}

std::string withPanelScript(std::string page, std::string_view panelId, std::string_view themeKey) {
    const auto end = page.rfind(bodyEnd);
    if (end != std::string::npos) page.replace(end, bodyEnd.size(), panelScript(panelId, themeKey));
    return page;
}

}  // namespace ravelin
