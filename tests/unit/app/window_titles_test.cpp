#include "app/window_titles.h"

#include <gtest/gtest.h>

#include <string>

#include "product.h"

namespace ravelin {
namespace {

TEST(WindowTitles, ThisBuildsMainWindowIsRecognised) {
    EXPECT_TRUE(isMainWindowTitle(mainWindowTitle));
}

TEST(WindowTitles, TheMainWindowNamesItsEditionAndVersion) {
    EXPECT_EQ(mainWindowTitle, std::string("Ravelin (Home Version ") + product::version + ")");
}

TEST(WindowTitles, MainWindowsOfOtherEditionsAndVersionsAreRecognised) {
    EXPECT_TRUE(isMainWindowTitle("Ravelin (Studio Version 2.10.0)"));
    EXPECT_TRUE(isMainWindowTitle("Ravelin ( Version "));
    EXPECT_TRUE(isMainWindowTitle("Ravelin (Home) - the Version of 1.0"));
    EXPECT_TRUE(isMainWindowTitle("Ravelin Input Studio (Studio Edition)"));
}

TEST(WindowTitles, OtherWindowsAreNotTheMainWindow) {
    for (const std::string title : {
             "",
             "Ravelin",
             "Ravelin (Home 1.0.1)",
             "Ravelin (Home Version)",
             "Ravelin (Home version 1.0.1)",
             "ravelin (Home Version 1.0.1)",
             " Ravelin (Home Version 1.0.1)",
             "About Ravelin (Home Version 1.0.1)",
             "Ravelin - Panel",
             "Ravelin - Activate",
             "Ravelin Input Studio (Studio Edition) ",
             "Ravelin Input Studio",
             "Some Version of Ravelin (",
         }) {
        EXPECT_FALSE(isMainWindowTitle(title)) << title;
    }
}

}  // namespace
}  // namespace ravelin
