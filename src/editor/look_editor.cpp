// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/look_editor.h"

#include "base/worker.h"
#include "editor/look_reader.h"
#include "editor/look_tiles.h"
#include "model/look_json.h"
#include "model/palette.h"
#include "model/store.h"
#include "wallpaper/photos.h"

#include <QBuffer>
#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <utility>

namespace tessel {

namespace {

/// How long a photo that nobody uses any more is kept: a look can be outside of the store too, in a PNG file
/// for example.
constexpr std::chrono::days photoKeeping{60};

const QString pngType = QStringLiteral("image/png");

QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

/// The first file among addresses; empty if there is none on this machine.
QString fileAmong(const QList<QUrl>& urls)
{
    const auto file = std::ranges::find_if(urls, &QUrl::isLocalFile);
    return file != urls.end() ? file->toLocalFile() : QString();
}

} // namespace

LookEditor::LookEditor(Store& store, Worker& worker, const EditorServices& services, QObject* parent)
    : QObject(parent)
    , m_store(store)
    , m_worker(worker)
    , m_services(services)
    , m_patterns(patternTiles(), patternChoice(), store)
    , m_dithers(ditherTiles(), ditherChoice(), store)
    , m_shapeKnobs(makeKnobs({&Look::scale, &Look::warp, &Look::speed, &Look::seed}))
    , m_colorKnobs(makeKnobs({&Look::offset, &Look::contrast, &Look::grain, &Look::vignette}))
    , m_ditherKnobs(makeKnobs({&Look::pixel, &Look::levels}))
{
    readLook();
    m_isOnDesktop = store.isOnDesktop();
    connect(&store, &Store::lookChanged, this, &LookEditor::readLook);
    connect(&store, &Store::changed, this, &LookEditor::readStatus);
    connect(&store, &Store::historyChanged, this, &LookEditor::historyChanged);
    connect(&store, &Store::undoneChanged, this, &LookEditor::historyChanged);
    connect(&store, &Store::motionChanged, this, &LookEditor::motionChanged);
}

LookEditor::~LookEditor() = default;

QList<Knob*> LookEditor::makeKnobs(std::initializer_list<float Look::*> fields)
{
    QList<Knob*> knobs;
    for (float Look::*field : fields)
        knobs << new Knob(sliderOf(field), m_store, this);
    return knobs;
}

QString LookEditor::status() const
{
    //: what is edited: it is the wallpaper, or nobody has applied it yet
    return m_isOnDesktop ? tr("On desktop") : tr("Draft");
}

QString LookEditor::applyTitle() const
{
    //: a button that puts the draft on the desktop
    return m_isOnDesktop ? tr("Applied. Apply again") : tr("Apply to desktop");
}

bool LookEditor::canUndo() const
{
    return !m_store.history().empty();
}

bool LookEditor::canRedo() const
{
    return !m_store.undone().empty();
}

bool LookEditor::motion() const
{
    return m_store.motion();
}

QString LookEditor::motionText() const
{
    if (!motion())
        return tr("Sets the frame in the preview as your desktop picture.");
    return m_services.playsWallpapers ? tr("Plays behind your desktop icons. Speed sets the pace.")
                                      : tr("On this desktop, too, it becomes a picture that stays still.");
}

void LookEditor::setMotion(bool motion)
{
    m_store.setMotion(motion);
}

void LookEditor::setInvert(bool invert)
{
    Look look = m_store.look();
    look.invert = invert;
    m_store.setLook(std::move(look));
}

void LookEditor::undo()
{
    m_store.undo();
}

void LookEditor::redo()
{
    m_store.redo();
}

void LookEditor::shuffleDraft()
{
    m_store.shuffleDraft();
}

void LookEditor::apply()
{
    m_store.applyToDesktop(m_store.look(), RecordHistory::yes, std::nullopt, ContinueFromEditor::yes);
}

void LookEditor::choosePhoto()
{
    m_services.chooseImage([guard = QPointer(this)](const QString& file) {
        if (guard)
            guard->usePhoto(file);
    });
}

void LookEditor::copy()
{
    QGuiApplication::clipboard()->setText(QString::fromStdString(encodeLook(m_store.look())));
}

void LookEditor::paste()
{
    if (const QMimeData* data = QGuiApplication::clipboard()->mimeData())
        take(*data);
}

void LookEditor::take(const QMimeData& data)
{
    const QString text = data.text();
    if (isMeantAsLook(text))
        takeFound(readLookJson(text.toUtf8()));
    else if (const QString file = fileAmong(data.urls()); !file.isEmpty())
        takeFile(file);
    else if (data.hasFormat(pngType))
        takePng([png = data.data(pngType)] { return png; });
    else if (data.hasImage())
        takePng([image = qvariant_cast<QImage>(data.imageData())] { return pngOf(image); });
    else
        tellUseless();
}

void LookEditor::takeDrop(const QList<QUrl>& urls, const QString& text)
{
    if (const QString file = fileAmong(urls); !file.isEmpty())
        takeFile(file);
    else if (isMeantAsLook(text))
        takeFound(readLookJson(text.toUtf8()));
    else
        tellUseless();
}

bool LookEditor::acceptsDrop(const QList<QUrl>& urls, const QString& text) const
{
    return !fileAmong(urls).isEmpty() || isMeantAsLook(text);
}

void LookEditor::takeFile(const QString& file)
{
    read([file, folder = m_services.photoFolder] { return readLookFile(file, folder); });
}

void LookEditor::takePng(std::function<QByteArray()> makePng)
{
    read([makePng = std::move(makePng), folder = m_services.photoFolder] {
        return readLookPng(makePng(), folder);
    });
}

/// Shows a photo of any kind, one of our own pictures too.
void LookEditor::usePhoto(const QString& file)
{
    read([file, folder = m_services.photoFolder]() -> Found { return CopiedPhoto{copyPhoto(file, folder)}; });
}

/// Reads on another thread what is then taken. What is thrown is about a photo.
void LookEditor::read(std::function<Found()> job)
{
    setReading(+1);
    m_worker.run(std::move(job), [this](const Outcome<Found>& outcome) {
        setReading(-1);
        if (outcome.value)
            takeFound(*outcome.value);
        else
            Q_EMIT told(tr("Could not use that photo"), outcome.failure);
    });
}

void LookEditor::takeFound(const Found& found)
{
    if (const auto* look = std::get_if<Look>(&found))
        m_store.changeLook(*look);
    else if (const auto* photo = std::get_if<CopiedPhoto>(&found))
        showPhoto(photo->path);
    else
        Q_EMIT told(tr("Could not use that look"), std::get<NoLook>(found).reason);
}

void LookEditor::tellUseless()
{
    Q_EMIT told(tr("There is no look in that"),
                tr("Use the JSON of a look, a PNG from Tessel Broth, or another picture as the photo."));
}

void LookEditor::showPhoto(const QString& path)
{
    Look look = m_store.look();
    look.pattern = Pattern::image;
    look.imagePath = path.toStdString();
    m_store.changeLook(std::move(look));
    removeOldPhotos();
}

void LookEditor::removeOldPhotos()
{
    const auto inUse = photosInUse(m_store);
    if (!inUse)
        return;
    const QDateTime limit = QDateTime::currentDateTimeUtc().addDays(-photoKeeping.count());
    m_worker.run([folder = m_services.photoFolder, inUse, limit] { removePhotos(folder, *inUse, limit); });
}

void LookEditor::readLook()
{
    const Look& look = m_store.look();
    const bool showsPhoto = look.pattern == Pattern::image;
    const bool needsPhoto = showsPhoto && !look.imagePath;
    if (std::pair(showsPhoto, needsPhoto) != std::pair(m_showsPhoto, m_needsPhoto)) {
        m_showsPhoto = showsPhoto;
        m_needsPhoto = needsPhoto;
        Q_EMIT photoChanged();
    }
    if (std::exchange(m_invert, look.invert) != look.invert)
        Q_EMIT invertChanged();
    QString title = QString::fromStdString(displayTitle(look));
    if (title != m_title) {
        m_title = std::move(title);
        Q_EMIT titleChanged();
    }
}

void LookEditor::readStatus()
{
    const bool isOnDesktop = m_store.isOnDesktop();
    if (std::exchange(m_isOnDesktop, isOnDesktop) != isOnDesktop)
        Q_EMIT isOnDesktopChanged();
}

void LookEditor::setReading(int change)
{
    const bool before = isReading();
    m_reading += change;
    if (isReading() != before)
        Q_EMIT isReadingChanged();
}

} // namespace tessel
