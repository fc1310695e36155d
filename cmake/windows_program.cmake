if(NOT windows_sources)
    return()
endif()
add_library(ravelin_windows STATIC ${windows_sources})
target_link_libraries(ravelin_windows PUBLIC ravelin_core
    wtsapi32 winmm ole32 shell32 user32 gdi32 advapi32 bcrypt winhttp
    crypt32 version shlwapi)
use_precompiled_header(ravelin_windows
    <windows.h> <algorithm> <array> <functional> <memory> <mutex> <optional> <string> <vector>)

# Icons, version information and manifest, in the program and in its Windows tests.
enable_language(RC)
add_library(ravelin_resources OBJECT packaging/ravelin.rc)
target_link_libraries(ravelin_resources PRIVATE ravelin_options)
file(GLOB resource_files CONFIGURE_DEPENDS packaging/icons/*.ico packaging/*.manifest)
set_source_files_properties(packaging/ravelin.rc PROPERTIES OBJECT_DEPENDS "${resource_files}")

if(EXISTS ${PROJECT_SOURCE_DIR}/app/ravelin_main.cpp)
    add_executable(Ravelin WIN32 app/ravelin_main.cpp)
    # The portable half calls back into the Windows half through input/platform.h, hence the
    # second mention: the linker reads static libraries from left to right.
    target_link_libraries(Ravelin PRIVATE
        ravelin_windows ravelin_core ravelin_windows ravelin_resources)
    # Says what was linked from where, for the list of what others wrote.
    target_link_options(Ravelin PRIVATE -Wl,-Map=${PROJECT_BINARY_DIR}/Ravelin.map)
endif()

# What the setup program cannot do by its own script: a plug-in of it, and its parts for tests.
set(plugin packaging/setup/plugin)
add_library(ravelin_setup_parts STATIC
    ${plugin}/remove_folder_win32.cpp ${plugin}/shell_start_win32.cpp)
target_link_libraries(ravelin_setup_parts PUBLIC ravelin_windows ravelin_core ravelin_windows
    oleaut32 uuid)
add_library(ravelin_setup MODULE ${plugin}/setup_plugin_win32.cpp)
set_target_properties(ravelin_setup PROPERTIES PREFIX "" OUTPUT_NAME RavelinSetup
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/setup-plugin)
target_link_libraries(ravelin_setup PRIVATE ravelin_setup_parts)
target_link_options(ravelin_setup PRIVATE -s -Wl,-Map=${PROJECT_BINARY_DIR}/RavelinSetup.map)
