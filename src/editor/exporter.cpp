// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/exporter.h"

#include "model/store.h"
#include "platform/screens.h"
#include "scene/animation_clocks.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace tessel {

namespace {

/// Offered as the display where there is none.
constexpr QSize usualDisplay{3024, 1964};

QSize displaySize(const Screens& screens)
{
    const std::vector<Screen> all = screens.list();
    return all.empty() ? usualDisplay : all.front().pixels().size();
}

} // namespace

QString pngName(const Look& look, QSize size)
{
    return QStringLiteral("Tessel Broth %1 %2x%3.png")
        .arg(QString::fromUtf8(title(look.pattern)))
        .arg(size.width())
        .arg(size.height());
}

Exporter::Exporter(Store& store, const Screens& screens, const AnimationClocks& clocks, Graphics& graphics,
                   const EditorServices& services, QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_screens(screens)
    , m_clocks(clocks)
    , m_services(services)
    , m_maker(graphics)
{
    connect(&screens, &Screens::changed, this, &Exporter::itemsChanged);
}

Exporter::~Exporter() = default;

std::vector<Exporter::Size> Exporter::sizes() const
{
    //: a size of pictures: that of
    return {{tr("This display"), displaySize(m_screens)},
            {tr("6K"), {6016, 3384}},
            {tr("iPhone"), {1320, 2868}},
            //: a picture as high as it is wide
            {tr("Square"), {2048, 2048}}};
}

QStringList Exporter::items() const
{
    QStringList items;
    for (const Size& size : sizes())
        items << QStringLiteral("%1  \u00B7  %2 \u00D7 %3")
                     .arg(size.name)
                     .arg(size.pixels.width())
                     .arg(size.pixels.height());
    return items;
}

qreal Exporter::progress() const
{
    const auto total =
        std::accumulate(m_exports.begin(), m_exports.end(), static_cast<double>(m_finished),
                        [](double sum, const auto& each) { return sum + each.second.progress; });
    return m_exports.empty() ? 0 : total / (static_cast<double>(m_exports.size()) + m_finished);
}

QString Exporter::title() const
{
    if (m_exports.empty())
        return {};
    if (m_exports.size() == 1)
        return tr("Saving %1").arg(m_exports.begin()->second.name);
    return tr("Saving %n pictures", nullptr, static_cast<int>(m_exports.size()));
}

void Exporter::exportItem(int item)
{
    const std::vector<Size> all = sizes();
    if (item < 0 || static_cast<std::size_t>(item) >= all.size())
        return;
    const Size& size = all[static_cast<std::size_t>(item)];
    m_services.choosePngFile(pngName(m_store.look(), size.pixels),
                             [guard = QPointer(this), recipe = recipe(), size](const QString& file) {
                                 if (guard)
                                     guard->saveAs(recipe, size, file);
                             });
}

void Exporter::cancel()
{
    for (const auto& [ticket, running] : std::exchange(m_exports, {}))
        m_maker.giveUp(ticket);
    m_finished = 0;
    tellState();
}

void Exporter::prepareDrag()
{
    if (m_dragged == m_store.look())
        return;
    m_maker.giveUp(std::exchange(m_dragTicket, 0));
    m_dragged = m_store.look();
    setDragUrl({});
    if (!m_dragFolder)
        m_dragFolder.emplace();
    const QSize size = displaySize(m_screens);
    const QString file = m_dragFolder->filePath(pngName(*m_dragged, size));
    m_dragTicket = m_maker.save(recipe(), size, file, [this, file](const std::optional<QString>& failure) {
        if (failure) {
            m_dragged.reset();
            alertOfPng(*failure);
            return;
        }
        setDragUrl(QUrl::fromLocalFile(file));
    });
}

/// What the preview shows now.
StillRecipe Exporter::recipe() const
{
    return {m_store.look(), m_clocks.phase(Source::editor), m_store.edge()};
}

void Exporter::saveAs(const StillRecipe& recipe, const Size& size, QString file)
{
    if (QFileInfo(file).suffix().compare(QStringLiteral("png"), Qt::CaseInsensitive) != 0) {
        file += QStringLiteral(".png");
        // Nobody has been asked whether this one may be replaced.
        if (QFileInfo::exists(file)) {
            alertOfPng(tr("There is \"%1\" already. Choose another name.").arg(file));
            return;
        }
    }
    const auto ticket = std::make_shared<int>(0);
    *ticket = m_maker.save(
        recipe, size.pixels, file,
        [this, ticket](const std::optional<QString>& failure) { finish(*ticket, failure); },
        [this, ticket](double progress) {
            m_exports[*ticket].progress = progress;
            Q_EMIT progressChanged();
        });
    m_exports[*ticket] = {size.name};
    tellState();
}

void Exporter::finish(int ticket, const std::optional<QString>& failure)
{
    m_exports.erase(ticket);
    m_finished = m_exports.empty() ? 0 : m_finished + 1;
    tellState();
    if (failure)
        alertOfPng(*failure);
}

void Exporter::tellState()
{
    Q_EMIT isBusyChanged();
    Q_EMIT titleChanged();
    Q_EMIT progressChanged();
}

void Exporter::alertOfPng(const QString& reason)
{
    Q_EMIT told(tr("Could not save that PNG"), reason);
}

void Exporter::setDragUrl(const QUrl& url)
{
    m_dragUrl = url;
    Q_EMIT dragUrlChanged();
}

} // namespace tessel
