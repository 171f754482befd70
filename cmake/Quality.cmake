# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Targets that check the sources without building them:
#   format         gives C++ files the form that .clang-format describes, without braces around single statements
#   check-format   fails where they have another
#   tidy           runs clang-tidy over everything that is compiled
#   lint           runs qmllint over every QML file
file(GLOB_RECURSE qml_files CONFIGURE_DEPENDS src/*.qml tools/*.qml)

find_program(RUN_CLANG_TIDY NAMES run-clang-tidy-14 run-clang-tidy)
find_program(QMLLINT NAMES qmllint PATHS /usr/lib/qt6/bin)

add_custom_target(format COMMAND ${PROJECT_SOURCE_DIR}/scripts/format)
add_custom_target(check-format COMMAND ${PROJECT_SOURCE_DIR}/scripts/format --check)
if(RUN_CLANG_TIDY)
    add_custom_target(tidy COMMAND ${RUN_CLANG_TIDY} -quiet -p ${CMAKE_BINARY_DIR}
        "${PROJECT_SOURCE_DIR}/(src|tests|bench|tools)/"
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
if(QMLLINT)
    get_property(qml_targets GLOBAL PROPERTY TESSEL_QML_TARGETS)
    foreach(file ${qml_files}) # one at a time: given many, qmllint 6.4 crashes
        list(APPEND lint_commands COMMAND ${QMLLINT} -I ${TESSEL_QML} ${file})
    endforeach()
    add_custom_target(lint ${lint_commands})
    add_dependencies(lint ${qml_targets}) # they describe their types
endif()
