# The public key that update manifests are verified with. A release sets the vendor's; any other
# build trusts a key that is made on this machine in build/update-key and never leaves it, so that
# updates can be tried out end to end.
set(RAVELIN_UPDATE_KEY "" CACHE STRING
    "Public key of the updates: X then Y, 128 hexadecimal digits; empty for a key of this machine")

set(update_key "${RAVELIN_UPDATE_KEY}")
if(update_key STREQUAL "")
    set(local_key ${PROJECT_SOURCE_DIR}/build/update-key/public.txt)
    if(NOT EXISTS ${local_key})
        find_program(NODE node REQUIRED)
        execute_process(
            COMMAND ${NODE} ${PROJECT_SOURCE_DIR}/packaging/make_key.mjs
                ${PROJECT_SOURCE_DIR}/build/update-key
            COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
    endif()
    file(STRINGS ${local_key} update_key LIMIT_COUNT 1)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${local_key})
endif()
if(NOT update_key MATCHES "^[0-9a-fA-F]+$")
    message(FATAL_ERROR "RAVELIN_UPDATE_KEY must be 128 hexadecimal digits")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/update_key.h.in
    ${PROJECT_BINARY_DIR}/generated/update_key.h @ONLY)
