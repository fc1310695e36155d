#include "themes/skin.h"

#include <algorithm>
#include <array>

#include "themes/base64.h"
#include "themes/json_object.h"
#include "themes/png_header.h"

namespace ravelin {
namespace {

struct PieceKind {
    std::string_view name;
    PixelSize size;
};

// The ".on" pieces show the pressed or checked state of a widget.
constexpr std::array<PieceKind, 24> pieceKinds = {{
    {"window", {1024, 768}},         {"panel", {256, 256}},
    {"panel-header", {256, 78}},     {"modal", {256, 256}},
    {"modal-header", {256, 78}},     {"button", {192, 64}},
    {"button.on", {192, 64}},        {"button-accent", {192, 64}},
    {"button-accent.on", {192, 64}}, {"button-danger", {192, 64}},
    {"button-danger.on", {192, 64}}, {"button-small", {48, 48}},
    {"button-small.on", {48, 48}},   {"field", {128, 64}},
    {"field.on", {128, 64}},         {"switch", {68, 40}},
    {"switch.on", {68, 40}},         {"switch-knob", {28, 28}},
    {"switch-knob.on", {28, 28}},    {"radio", {52, 52}},
    {"radio.on", {52, 52}},          {"scroll-track", {16, 256}},
    {"scroll-thumb", {16, 128}},     {"scroll-thumb.on", {16, 128}},
}};

std::string withName(std::string_view message, std::string_view name) {
    return std::string(message).append(name);
}

// A well-formed text says by itself how much it decodes to, and only the header of an image is
// looked at, so no more than the header is decoded.
std::string checkPiece(std::string_view name, std::string_view base64) {
    const auto kind = std::ranges::find(pieceKinds, name, &PieceKind::name);
    if (kind == pieceKinds.end()) return withName("unknown skin piece name: ", name);
    if (!isWellFormedBase64(base64)) return withName("invalid base64 for piece: ", name);
    if (decodedBase64Size(base64) > skinPieceCap)
        return withName("piece exceeds the 1 MB decoded cap: ", name);
    std::array<std::uint8_t, pngHeaderSize> header{};
    if (readPngSize(decodeBase64(base64, header)) != kind->size)
        return withName("invalid or wrong-size PNG for piece: ", name);
    return {};
}

std::string checkPieces(std::string_view piecesText, std::int32_t& count) {
    static constexpr char notAnObject[] = "skin.pieces is not an object";
    if (!piecesText.starts_with('{')) return notAnObject;
    std::string error;
    const auto walk =
        walkJsonObject(piecesText, [&](const JsonText& name, std::string_view valueToken) {
            error = checkPiece(name.view(), JsonText(valueToken).view());
            if (error.empty()) ++count;
            return error.empty();
        });
    // The text of a string value need not be well-formed.
    if (walk == JsonWalk::malformed) return notAnObject;
    return error;
}

std::string checkFont(std::string_view base64) {
    if (!isWellFormedBase64(base64)) return "invalid base64 for skin.font";
    const auto size = decodedBase64Size(base64);
    if (size > skinFontCap) return "font exceeds the 2 MB decoded cap";
    static constexpr std::array<std::uint8_t, 4> openType = {'O', 'T', 'T', 'O'};
    static constexpr std::array<std::uint8_t, 4> trueType = {0, 1, 0, 0};
    std::array<std::uint8_t, 4> buffer{};
    const auto magic = decodeBase64(base64, buffer);
    if (size < skinFontMinimum ||
        (!std::ranges::equal(magic, openType) && !std::ranges::equal(magic, trueType)))
        return "invalid font magic bytes";
    return {};
}

}  // namespace

std::string checkSkin(std::string_view skinText, SkinSummary& summary) {
    summary = {};
    const auto [templateText, pieces, font] =
        lookUpJson<3>(skinText, {"template", "pieces", "font"});
    if (templateText.view() != "1") return {};
    if (!pieces.view().empty())
        if (auto error = checkPieces(pieces.view(), summary.pieces); !error.empty()) return error;
    if (!font.view().empty()) {
        if (auto error = checkFont(font.view()); !error.empty()) return error;
        summary.font = true;
    }
    return {};
}

}  // namespace ravelin
