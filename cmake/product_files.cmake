# What the sources, the resource compiler, the setup program and the scripts are told of the product.
set(product_templates ${CMAKE_CURRENT_LIST_DIR})

# split_version(VERSION PREFIX): sets PREFIX_NUMBERS to a list of three and PREFIX_PRE to the number
# of a pre-release, which is empty for a release. The updater reads up to five digits a number, the
# version resources of Windows no more than 16 bits.
function(split_version version prefix)
    set(number "(0|[1-9][0-9]?[0-9]?[0-9]?[0-9]?)")
    if(NOT version MATCHES "^${number}\\.${number}\\.${number}(-beta\\.${number})?$")
        message(FATAL_ERROR "RAVELIN_VERSION must be MAJOR.MINOR.PATCH or MAJOR.MINOR.PATCH-beta.N, not \"${version}\"")
    endif()
    set(numbers ${CMAKE_MATCH_1} ${CMAKE_MATCH_2} ${CMAKE_MATCH_3})
    set(pre "${CMAKE_MATCH_5}")
    foreach(part ${numbers})
        if(part GREATER 65535)
            message(FATAL_ERROR "RAVELIN_VERSION \"${version}\" has a number over 65535, which is the most that Windows records")
        endif()
    endforeach()
    set(${prefix}_NUMBERS "${numbers}" PARENT_SCOPE)
    set(${prefix}_PRE "${pre}" PARENT_SCOPE)
endfunction()

# write_product_files(FOLDER VERSION): for this product as that version.
function(write_product_files folder RAVELIN_VERSION)
    split_version("${RAVELIN_VERSION}" version)
    string(REPLACE ";" "," RAVELIN_VERSION_NUMBERS "${version_NUMBERS},0")
    string(REPLACE ";" "." RAVELIN_VERSION_DOTTED "${version_NUMBERS}.0")
    set(RAVELIN_VERSION_FLAGS 0)
    if(NOT version_PRE STREQUAL "")
        set(RAVELIN_VERSION_FLAGS VS_FF_PRERELEASE)
    endif()
    string(REPLACE ";" "\", \"" RAVELIN_TIER_WORD_LIST "${RAVELIN_TIER_WORDS}")
    foreach(file product.h product.json product.nsh product_version.h)
        configure_file(${product_templates}/${file}.in ${folder}/${file} @ONLY)
    endforeach()
endfunction()
