// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace tessel {

/// Has the program speak the first of the user's languages that it knows, and be laid out in that language's
/// direction; English if it knows none. To be called once there is an application, before anything is shown.
/// TESSEL_TRANSLATIONS in the environment names a folder of .qm files that are taken instead of the program's
/// own.
void speakTheUsersLanguage();

} // namespace tessel
