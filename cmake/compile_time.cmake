# What a build from nothing costs is mostly the compiler's time: on the same headers, and on
# instrumenting what needs none.

# What the files of a target begin with, compiled once. The options are ccache's conditions.
function(use_precompiled_header name)
    target_precompile_headers(${name} PRIVATE ${ARGN})
    target_compile_options(${name} PRIVATE
        $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>
        "$<$<COMPILE_LANG_AND_ID:CXX,Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endfunction()

# What only runs tests: nothing is optimised, and undefined behaviour is looked for in what is tested.
function(plain_code)
    foreach(name ${ARGN})
        target_compile_options(${name} PRIVATE -O0)
        if(RAVELIN_SANITIZE MATCHES undefined)
            target_compile_options(${name} PRIVATE -fno-sanitize=undefined)
        endif()
    endforeach()
endfunction()

# A test program, with further headers that most of its files begin with.
function(compile_fast name)
    if(TARGET ${name})
        use_precompiled_header(${name}
            <gmock/gmock.h> <filesystem> <fstream> <functional> <mutex> <sstream> <thread> ${ARGN})
        plain_code(${name})
    endif()
endfunction()
