# Every target of ours compiles with these; a warning is an error.
add_library(ravelin_options INTERFACE)
target_compile_features(ravelin_options INTERFACE cxx_std_20)
# Not for the resource compiler, which knows none of them.
set(warnings -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2 -Wimplicit-fallthrough -Werror
    # GCC 12 takes assigning a literal to a std::string for overlapping memory when it inlines it.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_options(ravelin_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")
target_include_directories(ravelin_options INTERFACE
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
if(WIN32)
    target_compile_definitions(ravelin_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00
        __USE_MINGW_ANSI_STDIO=1)
    # One self-contained executable: no runtime DLL of the compiler beside it.
    target_link_options(ravelin_options INTERFACE -static -static-libgcc -static-libstdc++)
endif()

set(RAVELIN_SANITIZE "" CACHE STRING "Sanitizers of this build: address,undefined or thread")
if(RAVELIN_SANITIZE)
    add_compile_options(-fsanitize=${RAVELIN_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        add_compile_options(-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizer_ignore.txt)
    endif()
    add_link_options(-fsanitize=${RAVELIN_SANITIZE})
endif()
