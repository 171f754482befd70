# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# What all tests run in; ctest reads it. Without a locale of UTF-8 newer versions of Qt warn on standard error.
set(ENV{LC_ALL} C.UTF-8)
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{LIBGL_ALWAYS_SOFTWARE} 1)
