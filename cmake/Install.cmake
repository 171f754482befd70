# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# What "cmake --install" puts where, and the package that CPack makes of it (scripts/package).
include(GNUInstallDirs)
set(id org.tesselbroth.TesselBroth)
set(installed ${CMAKE_BINARY_DIR}/packaging)

configure_file(packaging/${id}.metainfo.xml.in ${installed}/${id}.metainfo.xml @ONLY)
configure_file(packaging/${id}.service.in ${installed}/${id}.service @ONLY)
configure_file(packaging/tessel-broth.service.in ${installed}/tessel-broth.service @ONLY)
configure_file(packaging/man/tessel.1.in ${installed}/tessel.1 @ONLY)
configure_file(packaging/man/tessel-broth.1.in ${installed}/tessel-broth.1 @ONLY)

install(TARGETS tessel tessel-broth)
install(FILES packaging/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${installed}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${installed}/${id}.service DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
install(FILES ${installed}/tessel-broth.service DESTINATION lib/systemd/user)
install(FILES packaging/completions/tessel.bash RENAME tessel
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/completions/_tessel DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES packaging/completions/tessel.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
add_subdirectory(tools/icons)
# Where Plasma finds its part: the module with Qt's own, the wallpaper with its own.
set(plasma_module ${QT6_INSTALL_QML}/org/tesselbroth/wallpaper)
install(TARGETS tessel_plasma_plugin DESTINATION ${plasma_module})
install(FILES src/plasma/qmldir DESTINATION ${plasma_module})
install(DIRECTORY src/plasma/package/ DESTINATION ${CMAKE_INSTALL_DATADIR}/plasma/wallpapers/org.tesselbroth.wallpaper)

# tessel_install_compressed(file name folder)
# Puts a file there under that name and .gz, always as the same bytes.
function(tessel_install_compressed file name folder)
    set(compressed ${installed}/${name}.gz)
    add_custom_command(OUTPUT ${compressed} COMMAND gzip -9nc ${file} > ${compressed} DEPENDS ${file} VERBATIM)
    add_custom_target(compress_${name} ALL DEPENDS ${compressed})
    install(FILES ${compressed} DESTINATION ${folder})
endfunction()

set(documents ${CMAKE_INSTALL_DATADIR}/doc/tessel-broth)
tessel_install_compressed(${installed}/tessel.1 tessel.1 ${CMAKE_INSTALL_MANDIR}/man1)
tessel_install_compressed(${installed}/tessel-broth.1 tessel-broth.1 ${CMAKE_INSTALL_MANDIR}/man1)
tessel_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog ${documents})
tessel_install_compressed(${PROJECT_SOURCE_DIR}/docs/guide.md guide.md ${documents})

# What Debian wants of a package, and nobody else.
if(TESSEL_DEBIAN_PACKAGE)
    set(maintainer "The Tessel Broth developers <developers@tesselbroth.org>")
    string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # that of SOURCE_DATE_EPOCH
    configure_file(packaging/debian/changelog.in ${installed}/changelog.Debian @ONLY)
    tessel_install_compressed(${installed}/changelog.Debian changelog.Debian ${documents})
    install(FILES packaging/debian/copyright DESTINATION ${documents})

    set(CPACK_GENERATOR DEB)
    set(CPACK_PACKAGE_NAME tessel-broth)
    set(CPACK_PACKAGE_VENDOR "The Tessel Broth developers")
    set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
    set(CPACK_STRIP_FILES ON) # scripts/package puts the symbols into a package of their own
    set(CPACK_SET_DESTDIR OFF)
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
        OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
    set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
    set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${maintainer})
    set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://tesselbroth.org)
    set(CPACK_DEBIAN_PACKAGE_SECTION x11)
    set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    # Libraries that are opened as they are needed: OpenGL by libepoxy, QML modules by Qt.
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libegl1, libgl1, qml6-module-qtquick, qml6-module-qtqml-workerscript")
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
        "fonts-dejavu-core, libgl1-mesa-dri, qt6-translations-l10n, qt6-wayland, xdg-utils, xwayland")
    set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "generative wallpapers, simmered one pixel at a time
A wallpaper is not a picture here but a recipe: one of 36 patterns, a palette,
a dither, a pixel size, a few sliders and a seed. The recipe becomes pixels at
any size, as a still picture of the desktop's own or played live behind
everything else.

The package holds tessel-broth, which keeps a bowl in the panel and an editor
at the edge of the screen, and tessel, which draws without a display.")
    set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/postrm)
    set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
    include(CPack)
endif()
