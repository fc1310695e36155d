#include "app/panel_script.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace ravelin {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(PanelScript, IsOneScriptElementBeforeTheEndOfTheBody) {
    const auto script = panelScript("panel-spammer", "daylight");
    EXPECT_THAT(script, StartsWith("<script>"));
    EXPECT_THAT(script, EndsWith("</script></body>"));
    EXPECT_EQ(script.find("</script>"), script.rfind("</script>"));
}

TEST(PanelScript, DoesItsStepsInOrderAndShowsTheBodyLate) {
    const auto script = panelScript("panel-spammer", "daylight");
    const std::vector<std::string> steps = {"applyTheme(\"daylight\")",
                                            "getElementById(\"theme-select\")",
                                            ": \"ravelin\"",
                                            "other.style.display = \"none\"",
                                            "getElementById(\"panel-spammer\")",
                                            "panel.style.display = \"block\"",
                                            "panel.style.borderRadius = \"0\"",
                                            "querySelector(\".panel-header\")",
                                            "header.style.cursor = \"move\"",
                                            "closest(\".panel-btn\")",
                                            "beginWindowDrag(\"\")",
                                            "document.body.style.padding",
                                            "dashboard.style.gap",
                                            "document.body.style.visibility = \"visible\"",
                                            "resizeHostWindow()"};
    std::size_t at = 0;
    for (const auto& step : steps) {
        const auto found = script.find(step, at);
        ASSERT_NE(found, std::string::npos) << step;
        at = found;
    }
}

TEST(PanelScript, NoValueEndsTheScriptOrItsString) {
    const auto script = panelScript("</script><b>", "a\"b\\");
    EXPECT_THAT(script, HasSubstr(R"(getElementById("\u003c/script>\u003cb>"))"));
    EXPECT_THAT(script, HasSubstr(R"(applyTheme("a\"b\\"))"));
    EXPECT_THAT(script, Not(HasSubstr("</script><b>")));
}

TEST(PanelScript, StandsAtTheLastEndOfABody) {
    const auto page = withPanelScript("<body>\"</body>\"</body></html>", "panel-ui", "ravelin");
    EXPECT_EQ(page, "<body>\"</body>\"" + panelScript("panel-ui", "ravelin") + "</html>");
    EXPECT_EQ(withPanelScript("<p>", "panel-ui", "ravelin"), "<p>");
}

}  // namespace
}  // namespace ravelin
