// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/file_descriptor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QImage>
#include <QObject>
#include <QRegion>
#include <QSocketNotifier>

#include <memory>

namespace tessel {

/// The frames of what plays on a screen, from the program that draws them. While that does not run, or shows
/// a still there, there are none.
class FrameSource : public QObject
{
    Q_OBJECT

public:
    /// \param bus of the session
    explicit FrameSource(QDBusConnection bus);

    /// Has the frames of that screen from now on; an empty name ends that.
    void setScreen(const QString& name);

    /// Memory in which the frame is; null while there are none. It is as long there as a copy of this is, and
    /// is not written between changed() and acknowledge().
    [[nodiscard]] QImage picture() const { return m_isShown ? m_picture : QImage(); }

    /// Where the picture is another than when this was asked for before.
    [[nodiscard]] QRegion takeChanges() { return std::exchange(m_changes, {}); }

    /// Tells that the frame has been shown, and that there can be another.
    void acknowledge();

Q_SIGNALS:
    void changed();
    /// The frames have begun or ended.
    void pictureChanged();

private Q_SLOTS:
    void ask();
    void askFor(const QString& screen);

private: // NOLINT(readability-redundant-access-specifiers): those above are slots
    void take(const QDBusMessage& answer);
    void read();
    void close();

    QDBusConnection m_bus;
    QDBusServiceWatcher m_program;
    QString m_screen;
    int m_question = 0; ///< the number of the latest one
    QImage m_picture;
    bool m_isShown = false; ///< there is a frame in it
    QRegion m_changes;
    FileDescriptor m_socket;
    std::unique_ptr<QSocketNotifier> m_packets;
};

} // namespace tessel
