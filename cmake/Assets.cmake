# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Typefaces and symbols come from npm in the versions that assets/package-lock.json names. Without a network, run
# "npm ci --ignore-scripts" in a copy of assets/ elsewhere and name that folder here.
set(TESSEL_ASSETS "$ENV{TESSEL_ASSETS}" CACHE PATH
    "Folder with the node_modules of assets/package-lock.json; empty: fetched by npm")

set(assets_root ${CMAKE_BINARY_DIR}/assets)

# tessel_take_assets(FILES file...)
# Puts the files, named by their path below node_modules, under ${assets_root}. Quick when they are there already.
function(tessel_take_assets)
    cmake_parse_arguments(ARG "" "" "FILES" ${ARGN})
    set(lock ${PROJECT_SOURCE_DIR}/assets/package-lock.json)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${lock})
    file(SHA256 ${lock} version)
    string(SHA256 wanted "${version} ${ARG_FILES} ${TESSEL_ASSETS}")
    set(stamp ${assets_root}/taken)
    if(EXISTS ${stamp})
        file(READ ${stamp} taken)
        if(taken STREQUAL wanted)
            return()
        endif()
    endif()

    set(packages ${TESSEL_ASSETS})
    if(NOT packages)
        set(packages ${CMAKE_BINARY_DIR}/npm)
        tessel_fetch_packages(${packages})
    endif()
    foreach(file ${ARG_FILES})
        get_filename_component(folder ${file} DIRECTORY)
        file(COPY ${packages}/node_modules/${file} DESTINATION ${assets_root}/${folder})
    endforeach()
    file(REMOVE_RECURSE ${CMAKE_BINARY_DIR}/npm)
    file(WRITE ${stamp} ${wanted})
endfunction()

# Fetches the packages of the lock file into a folder; npm checks them against the hashes in it.
function(tessel_fetch_packages folder)
    find_program(NPM npm REQUIRED)
    message(STATUS "Fetching typefaces and symbols")
    file(COPY ${PROJECT_SOURCE_DIR}/assets/package.json ${PROJECT_SOURCE_DIR}/assets/package-lock.json
        DESTINATION ${folder})
    execute_process(COMMAND ${NPM} ci --ignore-scripts --no-audit --no-fund --loglevel=error
        WORKING_DIRECTORY ${folder} RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "npm could not fetch typefaces and symbols. Without a network, set TESSEL_ASSETS to a "
            "folder in which \"npm ci\" was run with the files of assets/.")
    endif()
endfunction()
