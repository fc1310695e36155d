# What this build is called and where it looks on the network: the one place for all of it.
# The hosts are reserved example names; a release sets its own with -DRAVELIN_...=....

# product_option(NAME DEFAULT HELP): a value that -DNAME=... replaces in one build folder.
#
# The cache of a build folder also keeps defaults, and would go on with a former one after it is
# changed here. So it remembers which default it was given: a value that is still that one follows.
function(product_option name default help)
    if("$CACHE{${name}}" STREQUAL "$CACHE{${name}_DEFAULT}")
        unset(${name} CACHE)
    endif()
    set(${name} "${default}" CACHE STRING "${help}")
    set(${name}_DEFAULT "${default}" CACHE INTERNAL "The default of ${name} at the last configuration")
endfunction()

product_option(RAVELIN_VERSION "1.0.1" "Program version: MAJOR.MINOR.PATCH, -beta.N after it for a pre-release")
product_option(RAVELIN_PUBLISHER "The Ravelin developers" "Who publishes the program")
product_option(RAVELIN_COPYRIGHT "Copyright (c) 2026 The Ravelin developers. MIT License."
    "What the program's files say about their licence")
product_option(RAVELIN_TIER "home" "Tier word of the update manifests that this build accepts")
product_option(RAVELIN_TIER_TITLE "Home" "The tier as the window title shows it")
product_option(RAVELIN_WEB_HOST "ravelin.example"
    "Host of the documentation, the update manifests and the installers, in lower case")
product_option(RAVELIN_API_HOST "api.ravelin.example"
    "The other host that installers may come from, in lower case")
product_option(RAVELIN_TESTER_HOST "testers.ravelin.example"
    "Site for testers: the update self-test proves that no installer may come from there")
product_option(RAVELIN_UNRELATED_HOST "unrelated.example"
    "Somebody else's host in the addresses of the update self-test")
product_option(RAVELIN_INSTALL_ID "{7A1E2C90-3B4D-4E5F-8A6B-9C0D1E2F3A4B}"
    "Names the installed program among all others; the same for every version")
product_option(RAVELIN_TIER_WORDS "home;studio;portable;beta;macos;linux"
    "Tier words that an update manifest may carry at all")
product_option(RAVELIN_CHAT_URL "https://chat.ravelin.example/invite" "Community chat invite link")
product_option(RAVELIN_RUNTIME_URL "https://go.microsoft.com/fwlink/p/?LinkId=2124703"
    "Where a user gets the browser runtime")
product_option(RAVELIN_CPP_RUNTIME_URL "https://aka.ms/vs/17/release/vc_redist.x64.exe"
    "Where a user gets the C++ runtime that the view library needs")

if(NOT RAVELIN_TIER IN_LIST RAVELIN_TIER_WORDS)
    message(FATAL_ERROR "RAVELIN_TIER must be one of RAVELIN_TIER_WORDS")
endif()
foreach(name RAVELIN_WEB_HOST RAVELIN_API_HOST)
    # Installers' addresses are folded to lower case before they are compared with these.
    if(NOT ${name} MATCHES "^[a-z0-9.-]+$")
        message(FATAL_ERROR "${name} must be a host name in lower case")
    endif()
endforeach()

include(${CMAKE_CURRENT_LIST_DIR}/update_key.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/product_files.cmake)
write_product_files(${PROJECT_BINARY_DIR}/generated "${RAVELIN_VERSION}")
