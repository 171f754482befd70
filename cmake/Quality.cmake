# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# Targets that check the sources without building them:
#   format         rewrites C++ files as .clang-format wants them
#   check-format   fails where they are not
#   tidy           runs clang-tidy over everything that is compiled
#   lint           runs qmllint over every QML file
file(GLOB_RECURSE cpp_files CONFIGURE_DEPENDS
    src/*.cpp src/*.h tests/*.cpp tests/*.h bench/*.cpp bench/*.h fuzz/*.cpp tools/*.cpp tools/*.h)
file(GLOB_RECURSE qml_files CONFIGURE_DEPENDS src/*.qml tests/*.qml)

find_program(CLANG_FORMAT NAMES clang-format-14 clang-format)
find_program(RUN_CLANG_TIDY NAMES run-clang-tidy-14 run-clang-tidy)
find_program(QMLLINT NAMES qmllint PATHS /usr/lib/qt6/bin)

if(CLANG_FORMAT)
    add_custom_target(format COMMAND ${CLANG_FORMAT} -i ${cpp_files} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    add_custom_target(check-format COMMAND ${CLANG_FORMAT} --dry-run --Werror ${cpp_files}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
if(RUN_CLANG_TIDY)
    add_custom_target(tidy COMMAND ${RUN_CLANG_TIDY} -quiet -p ${CMAKE_BINARY_DIR}
        "${PROJECT_SOURCE_DIR}/(src|tests|bench|tools)/"
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()
if(QMLLINT AND qml_files)
    add_custom_target(lint COMMAND ${QMLLINT} ${qml_files} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
else()
    add_custom_target(lint COMMAND ${CMAKE_COMMAND} -E echo "There is no QML yet.")
endif()
