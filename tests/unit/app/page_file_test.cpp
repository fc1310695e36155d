#include "app/page_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace ravelin {
namespace {

const std::string reference = "<script src=\"vendor/Sortable.min.js\"></script>";

class PageFile : public ::testing::Test {
  protected:
    void giveScript(std::string_view text) { folder_.write("ui/vendor/Sortable.min.js", text); }
    std::string assemble(const std::string& page) { return assemblePage(page, folder_.path()); }

    test::TempFolder folder_;
};

TEST_F(PageFile, IsReadFromTheUiFolderBesideTheExecutable) {
    folder_.write("ui/index.html", "<p>page</p>");
    EXPECT_EQ(readPage(folder_.path()), "<p>page</p>");
    EXPECT_EQ(pagePath(folder_.path()), std::filesystem::path(folder_.file("ui")) / "index.html");
}

TEST_F(PageFile, ReportsAMissingPage) {
    EXPECT_EQ(readPage(folder_.path()), std::nullopt);
}

TEST_F(PageFile, AnEmptyPageIsAPage) {
    folder_.write("ui/index.html", "");
    EXPECT_EQ(readPage(folder_.path()), "");
}

TEST_F(PageFile, InlinesAReferencedScript) {
    giveScript("let a = 1;");
    EXPECT_EQ(assemble("<head>" + reference + "</head>"),
              "<head><script>let a = 1;</script></head>");
}

TEST_F(PageFile, InlinesTheBytesOfTheScriptAsTheyAre) {
    giveScript("a\r\nb\n\x1a\xc3\xa4");
    EXPECT_EQ(assemble(reference), "<script>a\r\nb\n\x1a\xc3\xa4</script>");
}

TEST_F(PageFile, WithoutAReferenceStaysUnchanged) {
    giveScript("let a = 1;");
    for (const std::string page :
         {"", "<p>none</p>", "<script src='vendor/Sortable.min.js'></script>",
          "<script src=\"vendor/Sortable.min.js\"> </script>",
          "<script defer src=\"vendor/Sortable.min.js\"></script>"})
        EXPECT_EQ(assemble(page), page);
}

TEST_F(PageFile, OnlyTheFirstOfTwoReferencesIsInlined) {
    giveScript("x");
    EXPECT_EQ(assemble(reference + "-" + reference), "<script>x</script>-" + reference);
}

TEST_F(PageFile, AMissingVendorFolderLeavesTheReference) {
    EXPECT_EQ(assemble("a" + reference), "a" + reference);
}

TEST_F(PageFile, AScriptThatWouldEndItsElementIsNotInlined) {
    giveScript("let end = '</script>';");
    EXPECT_EQ(assemble(reference), reference);
}

TEST_F(PageFile, AClosingTagInOtherCaseIsNotLookedFor) {
    giveScript("let end = '</SCRIPT>';");
    EXPECT_EQ(assemble(reference), "<script>let end = '</SCRIPT>';</script>");
}

TEST_F(PageFile, MayGrowToExactlyTheLimit) {
    const std::string page = "12345" + reference;
    const std::size_t room = pageSizeLimit - 5 - std::string("<script></script>").size();
    giveScript(std::string(room, 'x'));
    EXPECT_EQ(assemble(page).size(), pageSizeLimit);
    giveScript(std::string(room + 1, 'x'));
    EXPECT_EQ(assemble(page), page);
}

TEST_F(PageFile, APageOverTheLimitWithoutInliningIsHandedOver) {
    const std::string page(pageSizeLimit + 10, 'p');
    EXPECT_EQ(assemble(page).size(), page.size());
}

}  // namespace
}  // namespace ravelin
