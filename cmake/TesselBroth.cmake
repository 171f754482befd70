# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# What every target of the project is compiled with: strict warnings, and the sanitizers of the preset.
add_library(tessel_options INTERFACE)
target_compile_options(tessel_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)
if(TESSEL_WARNINGS_AS_ERRORS)
    target_compile_options(tessel_options INTERFACE -Werror)
endif()
target_compile_definitions(tessel_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS
    QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(TESSEL_SANITIZE)
    target_compile_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    target_compile_definitions(tessel_options INTERFACE TESSEL_SANITIZED)
    target_link_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE})
endif()

# tessel_add_library(NAME SOURCES file... DEPENDS target...)
# One subsystem, one static library; headers are included by their path below src/.
function(tessel_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    qt_add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE tessel_options)
endfunction()

# tessel_add_tests(NAME SOURCES file... DEPENDS target...)
# One test program for a subsystem; every test case in it becomes a test of its own.
function(tessel_add_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} tessel_options GTest::gmock GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST)
endfunction()
