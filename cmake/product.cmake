# What this build is called and where it looks on the network: the one place for all of it.
# The hosts are reserved example names; a release sets its own with -DRAVELIN_...=....
set(RAVELIN_VERSION "1.0.1" CACHE STRING "Program version, three numbers")
set(RAVELIN_TIER "home" CACHE STRING "Tier word of the update manifests that this build accepts")
set(RAVELIN_TIER_TITLE "Home" CACHE STRING "The tier as the window title shows it")
# Host names in lower case, as installers' addresses are compared with them.
set(RAVELIN_WEB_HOST "ravelin.example" CACHE STRING
    "Host of the documentation, the update manifests and the installers")
set(RAVELIN_API_HOST "api.ravelin.example" CACHE STRING "The other host that installers may come from")
set(RAVELIN_TESTER_HOST "testers.ravelin.example" CACHE STRING
    "Site for testers: the update self-test proves that no installer may come from there")
set(RAVELIN_UNRELATED_HOST "unrelated.example" CACHE STRING
    "Somebody else's host in the addresses of the update self-test")
set(RAVELIN_INSTALL_ID "{7A1E2C90-3B4D-4E5F-8A6B-9C0D1E2F3A4B}" CACHE STRING
    "Names the installed program among all others; the same for every version")
set(RAVELIN_TIER_WORDS "home;studio;portable;beta;macos;linux" CACHE STRING
    "Tier words that an update manifest may carry at all")
set(RAVELIN_CHAT_URL "https://chat.ravelin.example/invite" CACHE STRING "Community chat invite link")
set(RAVELIN_RUNTIME_URL "https://go.microsoft.com/fwlink/p/?LinkId=2124703"
    CACHE STRING "Where a user gets the browser runtime")
set(RAVELIN_CPP_RUNTIME_URL "https://aka.ms/vs/17/release/vc_redist.x64.exe"
    CACHE STRING "Where a user gets the C++ runtime that the view library needs")

string(REPLACE ";" "\", \"" RAVELIN_TIER_WORD_LIST "${RAVELIN_TIER_WORDS}")
if(NOT RAVELIN_TIER IN_LIST RAVELIN_TIER_WORDS)
    message(FATAL_ERROR "RAVELIN_TIER must be one of RAVELIN_TIER_WORDS")
endif()

configure_file(${CMAKE_CURRENT_LIST_DIR}/product.h.in ${PROJECT_BINARY_DIR}/generated/product.h @ONLY)

configure_file(${CMAKE_CURRENT_LIST_DIR}/product.nsh.in ${PROJECT_BINARY_DIR}/generated/product.nsh @ONLY)

# The resource compiler wants four numbers with commas.
string(REPLACE "." "," RAVELIN_VERSION_NUMBERS "${RAVELIN_VERSION}.0")
configure_file(${CMAKE_CURRENT_LIST_DIR}/product_version.h.in
    ${PROJECT_BINARY_DIR}/generated/product_version.h @ONLY)

include(${CMAKE_CURRENT_LIST_DIR}/update_key.cmake)
