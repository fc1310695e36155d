// Well-formedness and decoding, against readings of the same rules character by character.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "tests/unit/themes/plain_base64.h"
#include "themes/base64.h"

namespace {

namespace samples = ravelin::samples;

bool plainCheck(std::string_view text) {
    std::size_t padding = 0;
    for (const char c : text) {
        if (c == '=')
            ++padding;
        else if (padding > 0 || samples::base64Alphabet.find(c) == std::string_view::npos)
            return false;
    }
    return !text.empty() && text.size() % 4 == 0 && padding <= 2;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The first byte says how much room there is for the decoded bytes.
    if (size == 0) return -1;
    const std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool wellFormed = ravelin::isWellFormedBase64(text);
    if (wellFormed != plainCheck(text)) std::abort();
    if (!wellFormed) return 0;

    const auto expected = samples::decodePlainly(text);
    if (ravelin::decodedBase64Size(text) != expected.size()) std::abort();
    for (const std::size_t room : {std::size_t{data[0]}, expected.size()}) {
        std::vector<std::uint8_t> bytes(room);
        const auto decoded = ravelin::decodeBase64(text, bytes);
        const auto count = std::min(room, expected.size());
        if (!std::equal(decoded.begin(), decoded.end(), expected.begin(),
                        expected.begin() + static_cast<std::ptrdiff_t>(count)))
            std::abort();
    }
    return 0;
}
