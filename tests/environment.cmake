# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

# What all tests run in; ctest reads it. Without a locale of UTF-8 newer versions of Qt warn on standard error.
set(ENV{LC_ALL} C.UTF-8)
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{LIBGL_ALWAYS_SOFTWARE} 1)

# What is built with sanitizers ends with an exit code that no program of ours has otherwise once they find something.
# What libraries keep for each thread is not followed: that reads the C library's own blocks as an older one had them, and
# crashes where those hold something else.
set(ENV{ASAN_OPTIONS} exitcode=86:detect_stack_use_after_return=1:intercept_tls_get_addr=0)
set(ENV{LSAN_OPTIONS} exitcode=86:suppressions=${CMAKE_CURRENT_LIST_DIR}/leaks.supp:print_suppressions=0)
# Libraries of others were built without: what they synchronise is not seen, nor what they touch.
set(ENV{TSAN_OPTIONS} exitcode=86:ignore_noninstrumented_modules=1)
set(ENV{UBSAN_OPTIONS} exitcode=86:print_stacktrace=1)
