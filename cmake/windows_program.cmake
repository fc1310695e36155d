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
endif()
