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
    # Not vptr: it tries addresses out with write(), which tests/faults counts and lets fail.
    target_compile_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE} -fno-sanitize=vptr
        -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_definitions(tessel_options INTERFACE TESSEL_SANITIZED)
    target_link_options(tessel_options INTERFACE -fsanitize=${TESSEL_SANITIZE})
endif()

# tessel_optimize(file...)
# What is to be optimised even with sanitizers, where nothing else is: it goes through millions of pixels.
function(tessel_optimize)
    if(TESSEL_SANITIZE)
        set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O1 SKIP_PRECOMPILE_HEADERS ON)
    endif()
endfunction()

# tessel_vectorize(file...)
# What has loops over pixels that are to become wide, for which an ordinary build does not optimise enough.
function(tessel_vectorize)
    if(TESSEL_SANITIZE)
        tessel_optimize(${ARGN})
    else()
        set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O3)
    endif()
endfunction()

# Where a preset says so, what nearly every file includes of others is read once. Other presets go without, so that
# what a file forgets to include is noticed.

# tessel_add_headers(NAME TYPE DEPENDS target... FOLDERS target... HEADERS header...)
# A set of headers to precompile for targets of that type, all of which use what the set depends on. Of others only
# the folders are known: with definitions of theirs it would be of no use to targets that have not the same.
function(tessel_add_headers name type)
    cmake_parse_arguments(ARG "" "" "DEPENDS;FOLDERS;HEADERS" ${ARGN})
    if(NOT TESSEL_PRECOMPILE_HEADERS)
        return()
    endif()
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "int main() {}\n")
    if(type STREQUAL EXECUTABLE)
        add_executable(${name} EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${name}.cpp)
    else()
        add_library(${name} ${type} EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${name}.cpp)
    endif()
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS})
    foreach(library ${ARG_FOLDERS})
        target_include_directories(${name} SYSTEM PRIVATE $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
endfunction()

# tessel_precompile(TARGET FROM)
function(tessel_precompile target from)
    if(TESSEL_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} REUSE_FROM ${from})
    endif()
endfunction()

set(common_headers <algorithm> <array> <chrono> <filesystem> <functional> <map> <memory> <optional> <span> <string>
    <vector> <QtCore> <QGuiApplication> <QImage> <QPainter> <QQmlEngine> <QQuickItem> <QQuickView> <QScreen>)
tessel_add_headers(tessel_headers OBJECT DEPENDS tessel_options Qt6::Core FOLDERS Qt6::Quick HEADERS ${common_headers})

# tessel_add_library(NAME SOURCES file... DEPENDS target...)
# One subsystem, one static library; headers are included by their path below src/.
function(tessel_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    qt_add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ARG_DEPENDS} PRIVATE tessel_options)
    tessel_precompile(${name} tessel_headers)
endfunction()

# tessel_add_wayland_protocols(TARGET file...)
# What is generated from descriptions of protocols: FILE-client.h, and the code that it declares.
function(tessel_add_wayland_protocols target)
    tessel_add_wayland_headers(${target} client ${ARGN})
    foreach(description ${ARGN})
        get_filename_component(name ${description} NAME_WE)
        set(code ${CMAKE_CURRENT_BINARY_DIR}/protocols/${name}.c)
        add_custom_command(OUTPUT ${code} COMMAND ${WAYLAND_SCANNER} private-code ${description} ${code}
            DEPENDS ${description})
        target_sources(${target} PRIVATE ${code})
        set_source_files_properties(${code} PROPERTIES COMPILE_OPTIONS -w SKIP_PRECOMPILE_HEADERS ON)
    endforeach()
endfunction()

# tessel_add_wayland_headers(TARGET client|server file...)
# FILE-client.h or FILE-server.h alone, for one end of the protocols.
function(tessel_add_wayland_headers target end)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/protocols)
    file(MAKE_DIRECTORY ${folder})
    foreach(description ${ARGN})
        get_filename_component(name ${description} NAME_WE)
        set(header ${folder}/${name}-${end}.h)
        add_custom_command(OUTPUT ${header} COMMAND ${WAYLAND_SCANNER} ${end}-header ${description} ${header}
            DEPENDS ${description})
        target_sources(${target} PRIVATE ${header})
    endforeach()
    target_include_directories(${target} SYSTEM PRIVATE ${folder})
endfunction()

# tessel_add_tests(NAME SOURCES file... DEPENDS target...)
# One test program for a subsystem; every test case in it becomes a test of its own.
function(tessel_add_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} tessel_options GTest::gmock GTest::gtest_main)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    tessel_precompile(${name} test_headers)
    gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST)
endfunction()

# tessel_add_qml_module(TARGET uri FILES file... SINGLETONS file... DEPENDENCIES uri...)
# The QML files of a library, compiled, and its C++ types that say QML_ELEMENT; dependencies are the modules whose
# types those derive from. Whoever uses the module calls qml_register_types_URI(), with underscores in the URI.
function(tessel_add_qml_module target uri)
    cmake_parse_arguments(ARG "" "" "FILES;SINGLETONS;DEPENDENCIES" ${ARGN})
    string(REPLACE "." "/" folder ${uri})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}) # for the registration of types
    set_source_files_properties(${ARG_SINGLETONS} PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
    qt_add_qml_module(${target} URI ${uri} VERSION 1.0 NO_PLUGIN RESOURCE_PREFIX /qt-project.org/imports
        OUTPUT_DIRECTORY ${TESSEL_QML}/${folder} IMPORT_PATH ${TESSEL_QML}
        DEPENDENCIES QtQuick ${ARG_DEPENDENCIES} QML_FILES ${ARG_FILES} ${ARG_SINGLETONS})
    # Nothing refers to the compiled files: linkers leave them out of a static library, from Qt 6.5 on, and the program
    # would compile them anew for each user.
    string(LENGTH qInitResources_qmlcache_${target} length)
    target_link_options(${target} INTERFACE LINKER:--undefined=_Z${length}qInitResources_qmlcache_${target}v)
    # What Qt's compilers write is not held to our warnings.
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "/\\.rcc/|_qmltyperegistrations\\.cpp$")
    set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS -w)
endfunction()
