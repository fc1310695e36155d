# Test programs. A folder's files all go into its program; no list to keep.
function(ravelin_test_program name)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
    if(arg_SOURCES)
        add_executable(${name} ${arg_SOURCES})
        if(NOT WIN32)
            # A host build is for its programs; a test step names the test program that it wants.
            set_target_properties(${name} PROPERTIES EXCLUDE_FROM_ALL ON)
        endif()
        target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
    endif()
endfunction()

# The simulated desktop in place of the machine, and what else several test programs share.
file(GLOB support_sources CONFIGURE_DEPENDS tests/support/*.cpp)

if(RAVELIN_FUZZ)
    file(GLOB fuzz_sources CONFIGURE_DEPENDS tests/fuzz/*_fuzz.cpp)
    target_compile_options(ravelin_core PRIVATE -fsanitize=fuzzer-no-link,address,undefined)
    # Compiled once for all targets, as they are no part of what is explored.
    add_library(fuzz_support STATIC ${support_sources})
    target_link_libraries(fuzz_support PUBLIC ravelin_core)
    target_compile_options(fuzz_support PRIVATE -fsanitize=address,undefined)
    # The core asks the desktop, and the desktop ends the core's runs.
    target_link_libraries(ravelin_core PUBLIC fuzz_support)
    foreach(source ${fuzz_sources})
        get_filename_component(name ${source} NAME_WE)
        ravelin_test_program(${name} SOURCES ${source} LIBRARIES fuzz_support)
        target_compile_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
    endforeach()
    return()
endif()

set(INSTALL_GTEST OFF)
add_subdirectory(/usr/src/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
plain_code(gtest gmock gmock_main)

# Unit tests: the portable half on a simulated desktop with a clock that tests turn by hand.
file(GLOB unit_sources CONFIGURE_DEPENDS tests/unit/*.cpp tests/unit/*/*.cpp)
# On Windows the files underneath are the real ones: what no test simulates comes from that half.
ravelin_test_program(ravelin_unit_tests SOURCES ${unit_sources} ${support_sources}
    LIBRARIES ravelin_core $<TARGET_NAME_IF_EXISTS:ravelin_windows> GTest::gmock_main)
# So that a test can act between two locks of the same thread.
target_link_options(ravelin_unit_tests PRIVATE LINKER:--wrap=pthread_mutex_lock)
compile_fast(ravelin_unit_tests)

# Thread tests: the workers as real threads on a platform made of standard primitives.
file(GLOB thread_sources CONFIGURE_DEPENDS tests/threads/*.cpp)
ravelin_test_program(ravelin_thread_tests
    SOURCES ${thread_sources} tests/support/engine_reset.cpp tests/support/engine_defaults.cpp
    LIBRARIES ravelin_core $<TARGET_NAME_IF_EXISTS:ravelin_windows> GTest::gmock_main)

if(WIN32)
    file(GLOB windows_test_sources CONFIGURE_DEPENDS tests/windows/*.cpp tests/windows/*/*.cpp)
    # The real desktop, so of what the test programs share only what runs without a simulated one.
    ravelin_test_program(ravelin_windows_tests
        SOURCES ${windows_test_sources} tests/support/engine_defaults.cpp
        LIBRARIES ravelin_setup_parts ravelin_windows ravelin_core ravelin_windows ravelin_resources
            GTest::gmock)
    compile_fast(ravelin_windows_tests <windows.h>)
    file(GLOB windows_benches CONFIGURE_DEPENDS tests/bench/windows/*_main.cpp)
    foreach(source ${windows_benches})
        get_filename_component(name ${source} NAME_WE)
        string(REPLACE "_main" "" name ${name})
        ravelin_test_program(${name} SOURCES ${source}
            LIBRARIES ravelin_windows ravelin_core ravelin_windows)
    endforeach()
    # What the end-to-end tests need beside the program: another program, and a look from outside.
    add_executable(witness WIN32 tests/e2e/tools/witness_main.cpp)
    target_link_options(witness PRIVATE -municode)
    add_executable(window_tool tests/e2e/tools/window_tool_main.cpp)
    add_executable(pipe_tool tests/e2e/tools/pipe_tool_main.cpp)
    add_executable(instance_tool WIN32 tests/e2e/tools/instance_tool_main.cpp)
    target_link_options(instance_tool PRIVATE -municode)
    add_executable(system_tool tests/e2e/tools/system_tool_main.cpp)
    foreach(tool witness window_tool pipe_tool instance_tool system_tool)
        target_link_libraries(${tool} PRIVATE ravelin_options shell32 ntdll)
    endforeach()
    # The program with a short patience: the linker takes the limit before the one of the library.
    add_executable(ravelin_impatient WIN32 app/ravelin_main.cpp
        tests/e2e/tools/short_view_limit.cpp)
    target_link_libraries(ravelin_impatient PRIVATE
        ravelin_windows ravelin_core ravelin_windows ravelin_resources)
    # The updater's steps on command, and something to hand over to.
    ravelin_test_program(update_probe SOURCES tests/update/tools/update_probe_main.cpp
        LIBRARIES ravelin_windows ravelin_core ravelin_windows)
    ravelin_test_program(stand_in_installer SOURCES tests/update/tools/stand_in_installer_main.cpp
        LIBRARIES ravelin_options)
    # In place of the setup program's plug-in of that name.
    add_library(account_plugin MODULE tests/update/tools/account_plugin.cpp)
    set_target_properties(account_plugin PROPERTIES PREFIX "" OUTPUT_NAME UserInfo
        LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/account-plugin)
    target_link_libraries(account_plugin PRIVATE ravelin_options)
    include(cmake/other_versions.cmake)
    file(GLOB wine_tools CONFIGURE_DEPENDS tests/wine/CMakeLists.txt)
    if(wine_tools)
        add_subdirectory(tests/wine)
    endif()
else()
    file(GLOB bench_sources CONFIGURE_DEPENDS tests/bench/*.cpp)
    find_package(benchmark QUIET)
    if(benchmark_FOUND AND bench_sources)
        ravelin_test_program(ravelin_bench SOURCES ${bench_sources}
            tests/support/engine_reset.cpp tests/support/engine_defaults.cpp
            tests/threads/live_platform.cpp
            LIBRARIES ravelin_core benchmark::benchmark_main)
    endif()
endif()
