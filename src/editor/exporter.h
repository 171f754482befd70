// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "editor/editor_services.h"
#include "wallpaper/still_maker.h"

#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <map>
#include <optional>

namespace tessel {

class AnimationClocks;
class Screens;
class Store;

/// Saves the edited look as pictures: PNG files of the sizes to choose from, and one to drag out of the
/// preview. Several may be under way; they are made one after the other.
class Exporter : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor model has the one there is")
    /// What the menu offers, such as "6K  ·  6016 × 3384".
    Q_PROPERTY(QStringList items READ items NOTIFY itemsChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY isBusyChanged)
    /// Of all that is under way, 0 to 1.
    Q_PROPERTY(qreal progress READ progress NOTIFY progressChanged)
    /// What is under way, such as "Saving 6K"; empty while nothing is.
    Q_PROPERTY(QString title READ title NOTIFY titleChanged)
    /// The picture to drag, empty until it is there.
    Q_PROPERTY(QUrl dragUrl READ dragUrl NOTIFY dragUrlChanged)

public:
    /// All of it must outlive this.
    Exporter(Store& store, const Screens& screens, const AnimationClocks& clocks, Graphics& graphics,
             const EditorServices& services, QObject* parent = nullptr);
    ~Exporter() override;

    [[nodiscard]] QStringList items() const;
    [[nodiscard]] bool isBusy() const { return !m_exports.empty(); }
    [[nodiscard]] qreal progress() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QUrl dragUrl() const { return m_dragUrl; }

    /// Asks where to save the look as it is now, and saves it.
    /// \param item index into `items`
    Q_INVOKABLE void exportItem(int item);

    /// Gives up everything that is under way; files that are not whole yet do not appear.
    Q_INVOKABLE void cancel();

    /// Makes the picture to drag, of the size of the first screen, unless that of this look is there.
    Q_INVOKABLE void prepareDrag();

Q_SIGNALS:
    void itemsChanged();
    void isBusyChanged();
    void progressChanged();
    void titleChanged();
    void dragUrlChanged();
    /// Something did not work.
    void told(const QString& title, const QString& text);

private:
    struct Size
    {
        QString name;
        QSize pixels;
    };
    struct Export
    {
        QString name;
        double progress = 0;
    };

    [[nodiscard]] std::vector<Size> sizes() const;
    [[nodiscard]] StillRecipe recipe() const;
    void saveAs(const StillRecipe& recipe, const Size& size, QString file);
    void finish(int ticket, const std::optional<QString>& failure);
    void tellState();
    void alertOfPng(const QString& reason);
    void setDragUrl(const QUrl& url);

    Store& m_store;
    const Screens& m_screens;
    const AnimationClocks& m_clocks;
    const EditorServices& m_services;
    StillMaker m_maker;
    std::map<int, Export> m_exports; ///< those under way, as the still maker calls them
    int m_finished = 0;              ///< those that have ended while others were still under way
    std::optional<QTemporaryDir> m_dragFolder;
    std::optional<Look> m_dragged; ///< what the picture to drag shows, or will
    int m_dragTicket = 0;
    QUrl m_dragUrl;
};

/// The name that is proposed for a picture of a look.
[[nodiscard]] QString pngName(const Look& look, QSize size);

} // namespace tessel
