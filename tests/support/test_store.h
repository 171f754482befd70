// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace tessel {

/// A store whose settings are in a folder of the test's own.
class TestStore
{
public:
    TestStore() { reopen(); }

    [[nodiscard]] Store& operator*() { return *m_store; }
    [[nodiscard]] Store* operator->() { return m_store.get(); }

    /// As after a restart.
    void reopen()
    {
        if (m_store)
            m_store->saveNow();
        StoreEnvironment environment;
        environment.settingsFile = settingsFile();
        environment.random = seededSource(7);
        m_store = std::make_unique<Store>(environment);
    }

    /// What is on disk.
    [[nodiscard]] QByteArray fileText() const
    {
        QFile file(settingsFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] QString settingsFile() const { return m_folder.filePath(QStringLiteral("settings.conf")); }
    [[nodiscard]] QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Store> m_store;
};

inline Look lookWithSeed(float seed)
{
    Look look;
    look.seed = seed;
    return look;
}

} // namespace tessel
