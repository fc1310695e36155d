// Programs of the system below Wine, for what no Windows program can do there.
#pragma once

#include <string>
#include <string_view>

namespace ravelin::test {

// Starts the program, a path such as "/bin/ln", in the folder (empty: this one); false when it
// cannot be, as always on Windows itself. Its end is not told.
bool runBelowWine(std::string_view program, std::string_view arguments,
                  const std::wstring& folder = {});

}  // namespace ravelin::test
