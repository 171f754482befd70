# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The languages of the desktop application beside English, which its sources are in. docs/translating.md tells more.
file(GLOB TESSEL_TRANSLATIONS CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/tessel-broth_*.ts)

# What takes the texts out of the sources; the files to bring up to date follow.
set(TESSEL_LUPDATE $<TARGET_FILE:Qt6::lupdate> -silent -locations none -no-obsolete -I ${PROJECT_SOURCE_DIR}/src
    -extensions cpp,h,qml ${PROJECT_SOURCE_DIR}/src -ts)

# Target that has the translations hold the texts of today: new ones wait for their translation, old ones go.
add_custom_target(translations COMMAND ${TESSEL_LUPDATE} ${TESSEL_TRANSLATIONS}
    COMMENT "Taking texts out of the sources")
