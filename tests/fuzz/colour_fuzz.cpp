// What is taken for a colour, against a pattern that says the same in another way.
#include <cstdint>
#include <cstdlib>
#include <regex>
#include <string_view>

#include "themes/colour.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string part = " *([01]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5]) *";
    static const std::regex colour("#[0-9a-fA-F]{3}([0-9a-fA-F]{3})?|rgb\\(" + part + "," + part +
                                   "," + part + "\\)");
    if (size > 200) return -1;  // the pattern's recursion, not the colour, has a limit
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (ravelin::isValidColour(text) != std::regex_match(text.begin(), text.end(), colour))
        std::abort();
    return 0;
}
