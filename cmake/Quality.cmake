# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Targets that check the sources without building them:
#   format         gives C++ files the form that .clang-format describes, without braces around single statements
#   check-format   fails where they have another
#   tidy           runs clang-tidy over everything that is compiled
find_program(RUN_CLANG_TIDY NAMES run-clang-tidy-14 run-clang-tidy)

add_custom_target(format COMMAND ${PROJECT_SOURCE_DIR}/scripts/format)
add_custom_target(check-format COMMAND ${PROJECT_SOURCE_DIR}/scripts/format --check)
if(RUN_CLANG_TIDY)
    add_custom_target(tidy COMMAND ${RUN_CLANG_TIDY} -quiet -p ${CMAKE_BINARY_DIR}
        "${PROJECT_SOURCE_DIR}/(src|tests|bench|tools)/"
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
