#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/unit/themes/sample_theme.h"
#include "tests/unit/themes/theme_result.h"

namespace ravelin {
namespace {

using samples::base64;
using samples::Bytes;
using samples::jsonString;
using samples::knownPieces;
using samples::Object;
using samples::png;
using samples::pngOfBytes;
using samples::verdict;
using samples::withPieces;

std::string verdictOfValue(std::string_view name, std::string_view value) {
    return verdict(withPieces(Object{{{std::string(name), std::string(value)}}}));
}

std::string verdictOf(std::string_view name, const Bytes& image) {
    return verdictOfValue(name, jsonString(base64(image)));
}

std::string about(std::string_view message, std::string_view name) {
    return std::string(message).append(": ").append(name);
}

constexpr char accepted[] = "OK skin 1 pieces";
constexpr char unknown[] = "unknown skin piece name";
constexpr char badBase64[] = "invalid base64 for piece";
constexpr char tooLarge[] = "piece exceeds the 1 MB decoded cap";
constexpr char badImage[] = "invalid or wrong-size PNG for piece";

TEST(SkinPiece, IsAcceptedInTheSizeOfItsNameOnly) {
    for (const auto& piece : knownPieces) {
        EXPECT_EQ(verdictOf(piece.name, png(piece.width, piece.height)), accepted) << piece.name;
        for (const auto& [width, height] : {std::pair{piece.width + 1, piece.height},
                                            {piece.width, piece.height + 1},
                                            {piece.width - 1, piece.height},
                                            {piece.width, piece.height * 2},
                                            {piece.width + 256, piece.height},
                                            {1U, 1U}})
            EXPECT_EQ(verdictOf(piece.name, png(width, height)), about(badImage, piece.name))
                << width << "x" << height;
    }
}

TEST(SkinPiece, IsNotTurnedAround) {
    EXPECT_EQ(verdictOf("button", png(64, 192)), about(badImage, "button"));
}

TEST(SkinPiece, IsAcceptedUnderAll24NamesAtOnce) {
    Object pieces;
    for (const auto& piece : knownPieces)
        pieces.add(piece.name, jsonString(base64(png(piece.width, piece.height))));
    EXPECT_EQ(verdict(withPieces(pieces)), "OK skin 24 pieces");
}

TEST(SkinPiece, NeedsAKnownName) {
    for (const char* name :
         {"", "Button", "BUTTON", "button ", " button", "button.off", "button.ON", "buttons",
          "butto", "window.on", "panel.on", "panel-header.on", "modal.on", "modal-header.on",
          "scroll-track.on", "skin", "button.on.on"})
        EXPECT_EQ(verdictOf(name, png(192, 64)), about(unknown, name));
    EXPECT_EQ(verdictOf("b\\u00fctton", png(192, 64)), about(unknown, "b\xC3\xBCtton"));
    EXPECT_EQ(verdictOf("\\u0062utton", png(192, 64)), accepted);
}

TEST(SkinPiece, NeedsWellFormedBase64) {
    const std::string good = base64(png(192, 64));
    for (const std::string& text :
         {std::string(), std::string("QUJDR"), std::string("===="), std::string("Q==="),
          std::string("QQ==QQ=="), std::string("QUJ*"), "data:image/png;base64," + good,
          good + "\\n", good.substr(0, 76) + "\\n" + good.substr(76)})
        EXPECT_EQ(verdictOfValue("button", jsonString(text)), about(badBase64, "button"))
            << text.substr(0, 80);
    EXPECT_EQ(verdictOfValue("button", "{}"), about(badBase64, "button"));
    EXPECT_EQ(verdictOfValue("button", "false"), about(badBase64, "button"));
}

TEST(SkinPiece, MayHaveEscapesInItsText) {
    std::string text = base64(png(52, 52));
    text.replace(0, 1, "\\u0069");
    for (std::size_t at = 0; (at = text.find('/', at)) != std::string::npos; at += 2)
        text.insert(at, 1, '\\');
    EXPECT_EQ(verdictOfValue("radio", jsonString(text)), accepted);
}

TEST(SkinPiece, HasAtMostOneMegabyte) {
    for (const std::size_t over : {1U, 2U, 3U}) {
        EXPECT_EQ(verdictOf("window", pngOfBytes(1024, 768, 1'048'577 - over)), accepted);
        EXPECT_EQ(verdictOf("window", pngOfBytes(1024, 768, 1'048'576 + over)),
                  about(tooLarge, "window"));
    }
}

TEST(SkinPiece, IsMeasuredBeforeItsImageIsRead) {
    EXPECT_EQ(verdictOf("button", Bytes(1'048'577)), about(tooLarge, "button"));
    EXPECT_EQ(verdictOf("button", Bytes(1'048'576)), about(badImage, "button"));
}

TEST(SkinPiece, NeedsTheWholeHeaderOfAnImage) {
    Bytes image = png(28, 28);
    image.resize(24);
    EXPECT_EQ(verdictOf("switch-knob", image), accepted);
    for (std::size_t size = 1; size < 24; ++size) {
        image.resize(size);
        EXPECT_EQ(verdictOf("switch-knob", image), about(badImage, "switch-knob")) << size;
    }
    EXPECT_EQ(verdictOfValue("switch-knob", jsonString("QQ==")), about(badImage, "switch-knob"));
}

TEST(SkinPiece, NeedsEveryByteOfTheHeader) {
    for (std::size_t i = 0; i < 24; ++i) {
        Bytes image = png(28, 28);
        image[i] ^= 0x80;
        EXPECT_EQ(verdictOf("switch-knob", image), about(badImage, "switch-knob")) << "byte " << i;
    }
}

TEST(SkinPiece, IsBelievedWhatItsHeaderClaims) {
    Bytes image = png(1, 1);
    const Bytes claim = png(192, 64);
    std::copy(claim.begin() + 16, claim.begin() + 24, image.begin() + 16);
    EXPECT_EQ(verdictOf("field", image), about(badImage, "field"));
    EXPECT_EQ(verdictOf("button", image), accepted);
}

TEST(SkinPiece, IsRejectedInTheOrderOfTheFile) {
    const std::string good = jsonString(base64(png(192, 64)));
    Object pieces{{{"button", good}, {"window", good}, {"x", good}, {"field", jsonString("!")}}};
    EXPECT_EQ(verdict(withPieces(pieces)), about(badImage, "window"));
    EXPECT_EQ(verdict(withPieces(pieces.remove("window"))), about(unknown, "x"));
    EXPECT_EQ(verdict(withPieces(pieces.remove("x"))), about(badBase64, "field"));
    EXPECT_EQ(verdict(withPieces(pieces.remove("field"))), accepted);
}

TEST(SkinPiece, IsCheckedEachTimeItsNameIsRepeated) {
    const std::string good = jsonString(base64(png(192, 64)));
    Object pieces{{{"button", good}, {"button", good}}};
    EXPECT_EQ(verdict(withPieces(pieces)), "OK skin 2 pieces");
    EXPECT_EQ(verdict(withPieces(pieces.add("button", jsonString("!")))),
              about(badBase64, "button"));
}

}  // namespace
}  // namespace ravelin
