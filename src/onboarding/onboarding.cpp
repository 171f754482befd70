// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "onboarding/onboarding.h"

#include "controls/look_pictures.h"
#include "platform/system_texts.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <utility>

namespace tessel {

namespace {

constexpr std::array edges{Edge::left, Edge::right};
constexpr std::array motions{false, true};
constexpr std::array<qint64, 3> intervals{60, 1440, 0};

/// That of "Daily".
constexpr qint64 usualMinutes = 1440;

/// Pictures and their cells, in points. The dissolve has the grid of the largest.
constexpr float windowWidth = 880.0F;
constexpr float largeCell = 8.0F;
constexpr float thumbnailWidth = 28.0F;
constexpr float thumbnailCell = 1.0F;
constexpr float tileWidth = 132.0F;
constexpr float tilePixel = 1.0F / 3.0F; ///< to one of a look's `pixel`
constexpr float brothWidth = 280.0F;
constexpr float brothCell = 2.8F;

template<typename Values, typename Value>
int indexIn(const Values& values, const Value& value)
{
    const auto found = std::ranges::find(values, value);
    return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

QString pictureWithCells(Look look, float cell, float width)
{
    look.pixel = pixelForCells(cell, width);
    return pictureOfLook(look);
}

} // namespace

Onboarding::Onboarding(Store& store, OnboardingServices services)
    : m_store(store)
    , m_services(std::move(services))
    , m_minutes(store.shuffleMinutes() > 0 ? store.shuffleMinutes() : usualMinutes)
{
    connect(&m_store, &Store::edgeChanged, this, &Onboarding::edgeChanged);
    connect(&m_store, &Store::motionChanged, this, &Onboarding::motionChanged);
    connect(&m_store, &Store::shuffleMinutesChanged, this, [this] {
        if (servesFresh())
            m_minutes = m_store.shuffleMinutes();
        Q_EMIT intervalChanged();
    });
}

QString Onboarding::title() const
{
    switch (m_step) {
    case Welcome:
        //: titles: two short lines, set very large
        return tr("Tessel\nBroth");
    case Ladle:
        //: two lines. The ladle is the handle at the edge of the screen, the bowl a wallpaper or the icon in
        //: the panel
        return tr("Meet\nthe ladle");
    case Bowls:
        //: two lines; a bowl is a wallpaper to begin with
        return tr("Pick\na bowl");
    case Warm:
        break;
    }
    //: two lines; what runs at login keeps the broth warm
    return tr("Keep\nit warm");
}

QString Onboarding::text() const
{
    switch (m_step) {
    case Welcome:
        return introductionText();
    case Ladle:
        if (m_services.hasHandle)
            return tr(
                "A small circle waits on the edge of your screen. Click it for quick actions, click again "
                "to open the kitchen.");
        if (m_services.menuPlace() == MenuPlace::panel)
            return tr("A small bowl waits in your panel. Click it for new wallpapers, presets and everything "
                      "else.");
        return tr("Start Tessel Broth once more for its menu: new wallpapers, presets and everything else.");
    case Bowls:
        return {};
    case Warm:
        break;
    }
    switch (m_services.menuPlace()) {
    case MenuPlace::panel:
        return tr("Two small things. Both can be changed later from the menu bar.");
    case MenuPlace::handle:
        return tr("Two small things. Both can be changed later from the menu of the ladle: right-click it.");
    case MenuPlace::reopening:
        break;
    }
    return tr("Two small things. Both can be changed later: start Tessel Broth once more for its menu.");
}

QString Onboarding::stepText() const
{
    return tr("Step %1 of 4").arg(m_step + 1);
}

QString Onboarding::forwardTitle() const
{
    switch (m_step) {
    case Welcome:
        //: a button: begins the introduction
        return tr("Start cooking");
    case Ladle:
        return tr("Next");
    case Bowls:
        //: a button: puts the bowl that was chosen on the desktop
        return tr("Serve it");
    case Warm:
        break;
    }
    //: a button: ends the introduction
    return tr("Let's eat");
}

QStringList Onboarding::edgeTitles() const
{
    //: the end of "Keep it on the"
    return {tr("Left"), tr("Right")};
}

int Onboarding::edge() const
{
    return indexIn(edges, m_store.edge());
}

void Onboarding::setEdge(int index)
{
    m_store.setEdge(edges.at(static_cast<std::size_t>(index)));
}

QStringList Onboarding::bowlTitles() const
{
    QStringList titles;
    for (const Bowl& bowl : m_bowls)
        titles << bowl.title;
    return titles;
}

void Onboarding::setBowl(int index)
{
    const std::optional<int> chosen =
        index >= 0 && index < static_cast<int>(m_bowls.size()) ? std::optional(index) : std::nullopt;
    if (std::exchange(m_bowl, chosen) != chosen)
        Q_EMIT bowlChanged();
}

QStringList Onboarding::motionTitles() const
{
    //: "Still": a wallpaper that does not move
    return {tr("Still"), tr("Animated")};
}

int Onboarding::motion() const
{
    return indexIn(motions, m_store.motion());
}

void Onboarding::setMotion(int index)
{
    m_store.setMotion(motions.at(static_cast<std::size_t>(index)));
}

void Onboarding::setOpensAtLogin(bool on)
{
    // It is as it was until the desktop has answered, and perhaps longer.
    m_services.setOpensAtLogin(on, [self = QPointer(this)] {
        if (self != nullptr)
            Q_EMIT self->opensAtLoginChanged();
    });
}

QString Onboarding::opensAtLoginText() const
{
    return openAtLoginText();
}

void Onboarding::setServesFresh(bool serves)
{
    m_store.setShuffleMinutes(serves ? m_minutes : 0);
}

QStringList Onboarding::intervalTitles() const
{
    //: how often there is a new wallpaper
    return {tr("Hourly"), tr("Daily"), tr("Never")};
}

int Onboarding::interval() const
{
    return indexIn(intervals, m_store.shuffleMinutes());
}

void Onboarding::setInterval(int index)
{
    m_store.setShuffleMinutes(intervals.at(static_cast<std::size_t>(index)));
}

QString Onboarding::welcomePicture() const
{
    return pictureWithCells(m_bowls.front().look, largeCell, windowWidth);
}

QString Onboarding::examplePicture() const
{
    return pictureWithCells(exampleLook(), largeCell, windowWidth);
}

QString Onboarding::exampleThumbnail() const
{
    return pictureWithCells(exampleLook(), thumbnailCell, thumbnailWidth);
}

QStringList Onboarding::bowlPictures() const
{
    QStringList pictures;
    for (const Bowl& bowl : m_bowls)
        pictures << pictureWithCells(bowl.look, bowl.look.pixel * tilePixel, tileWidth);
    return pictures;
}

QString Onboarding::brothPicture() const
{
    const Look& look = m_bowl ? m_bowls.at(static_cast<std::size_t>(*m_bowl)).look : m_store.look();
    return pictureWithCells(look, brothCell, brothWidth);
}

void Onboarding::goForward()
{
    if (m_step == Bowls && m_bowl != m_served)
        serveBowl();
    if (m_step == Warm)
        finish(Ending::completed);
    else
        setStep(static_cast<Step>(m_step + 1));
}

void Onboarding::goBack()
{
    if (m_step != Welcome)
        setStep(static_cast<Step>(m_step - 1));
}

void Onboarding::finish(Ending ending)
{
    if (std::exchange(m_isFinished, true))
        return;
    m_store.setOnboarded(true);
    if (m_bowl != m_served)
        serveBowl();
    Q_EMIT finished(ending);
}

void Onboarding::keepBowl()
{
    if (m_bowl && m_bowl != m_served)
        m_store.changeLook(m_bowls.at(static_cast<std::size_t>(*m_bowl)).look);
}

void Onboarding::setStep(Step step)
{
    m_step = step;
    Q_EMIT stepChanged();
}

/// Makes the bowl that was chosen the current look, and puts it on the desktop.
void Onboarding::serveBowl()
{
    if (!m_bowl)
        return;
    m_served = m_bowl;
    const Look& look = m_bowls.at(static_cast<std::size_t>(*m_bowl)).look;
    m_store.changeLook(look);
    m_store.applyToDesktop(look, RecordHistory::yes, {}, ContinueFromEditor::no);
}

} // namespace tessel
