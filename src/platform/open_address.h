// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QUrl>

#include <functional>

namespace tessel {

/// Opens a web page or a folder with whatever the desktop has for it.
/// \param context nothing is called once it is gone
/// \param done told, perhaps seconds later, whether something has taken it
void openAddress(const QUrl& address, QObject* context, const std::function<void(bool isTaken)>& done);

} // namespace tessel
