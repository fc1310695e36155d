if(NOT windows_sources)
    return()
endif()
add_library(ravelin_windows STATIC ${windows_sources})
target_link_libraries(ravelin_windows PUBLIC ravelin_core
    wtsapi32 winmm ole32 shell32 user32 gdi32 advapi32 comctl32 bcrypt winhttp crypt32 version shlwapi)

if(EXISTS ${PROJECT_SOURCE_DIR}/app/ravelin_main.cpp)
    enable_language(RC)
    add_executable(Ravelin WIN32 app/ravelin_main.cpp)
    if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/ravelin.rc)
        target_sources(Ravelin PRIVATE packaging/ravelin.rc)
    endif()
    # The portable half calls back into the Windows half through input/platform.h, hence the
    # second mention: the linker reads static libraries from left to right.
    target_link_libraries(Ravelin PRIVATE ravelin_windows ravelin_core ravelin_windows)
endif()
