// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace tessel {

/// Opens the page of a program in the software centre of the system.
/// \param component the program's name there, such as "org.example.Program"
/// \param context nothing is called once it is gone
/// \param done told whether there is one that has taken it
void openSoftwareCentre(const QString& component, QObject* context,
                        const std::function<void(bool isTaken)>& done);

} // namespace tessel
