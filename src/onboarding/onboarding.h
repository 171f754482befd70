// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/store.h"
#include "onboarding/bowls.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <cstdint>
#include <functional>
#include <optional>

namespace tessel {

/// Where the menu is to be had.
enum class MenuPlace : std::uint8_t
{
    panel,     ///< behind the bowl in the desktop's panel
    handle,    ///< on the handle, with the other button
    reopening, ///< by starting the program once more
};

/// What the introduction is told, and has others do for it.
struct OnboardingServices
{
    std::function<MenuPlace()> menuPlace;
    bool hasHandle = true; ///< there will be a handle
    std::function<bool()> opensAtLogin;
    /// \param done called when opensAtLogin() may have another answer
    std::function<void(bool on, const std::function<void()>& done)> setOpensAtLogin;
};

/// How the introduction ended.
enum class Ending : std::uint8_t
{
    closed,   ///< on the way
    completed ///< with its last button
};

/// The introduction of the first start: four steps, of which this is the state. What is chosen in it is in
/// the store at once, but for the bowl, which is served on the way to the last step or at the end.
class Onboarding : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application has one")
    Q_PROPERTY(Step step READ step NOTIFY stepChanged)
    Q_PROPERTY(QString title READ title NOTIFY stepChanged)
    Q_PROPERTY(QString text READ text NOTIFY stepChanged)
    Q_PROPERTY(QString stepText READ stepText NOTIFY stepChanged)
    Q_PROPERTY(QString forwardTitle READ forwardTitle NOTIFY stepChanged)

    Q_PROPERTY(QString welcomePicture READ welcomePicture CONSTANT)

    Q_PROPERTY(bool hasHandle READ hasHandle CONSTANT)
    Q_PROPERTY(QStringList edgeTitles READ edgeTitles CONSTANT)
    Q_PROPERTY(int edge READ edge WRITE setEdge NOTIFY edgeChanged)
    Q_PROPERTY(QString examplePicture READ examplePicture CONSTANT)
    Q_PROPERTY(QString exampleThumbnail READ exampleThumbnail CONSTANT)

    Q_PROPERTY(QStringList bowlTitles READ bowlTitles CONSTANT)
    Q_PROPERTY(QStringList bowlPictures READ bowlPictures CONSTANT)
    Q_PROPERTY(int bowl READ bowl WRITE setBowl NOTIFY bowlChanged)
    Q_PROPERTY(QStringList motionTitles READ motionTitles CONSTANT)
    Q_PROPERTY(int motion READ motion WRITE setMotion NOTIFY motionChanged)

    Q_PROPERTY(bool opensAtLogin READ opensAtLogin WRITE setOpensAtLogin NOTIFY opensAtLoginChanged)
    Q_PROPERTY(QString opensAtLoginText READ opensAtLoginText CONSTANT)
    Q_PROPERTY(bool servesFresh READ servesFresh WRITE setServesFresh NOTIFY intervalChanged)
    Q_PROPERTY(QStringList intervalTitles READ intervalTitles CONSTANT)
    Q_PROPERTY(int interval READ interval WRITE setInterval NOTIFY intervalChanged)
    Q_PROPERTY(QString brothPicture READ brothPicture NOTIFY bowlChanged)

public:
    enum Step
    {
        Welcome,
        Ladle,
        Bowls,
        Warm
    };
    Q_ENUM(Step)

    /// \param store must outlive this
    Onboarding(Store& store, OnboardingServices services);

    [[nodiscard]] Step step() const { return m_step; }
    /// With the line breaks that it is drawn with.
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] QString stepText() const;
    [[nodiscard]] QString forwardTitle() const;

    [[nodiscard]] bool hasHandle() const { return m_services.hasHandle; }
    [[nodiscard]] QStringList edgeTitles() const;
    /// A place among the titles, as are the others below.
    [[nodiscard]] int edge() const;
    void setEdge(int index);

    [[nodiscard]] QStringList bowlTitles() const;
    /// -1 for none.
    [[nodiscard]] int bowl() const { return m_bowl.value_or(-1); }
    void setBowl(int index);
    [[nodiscard]] QStringList motionTitles() const;
    [[nodiscard]] int motion() const;
    void setMotion(int index);

    [[nodiscard]] bool opensAtLogin() const { return m_services.opensAtLogin(); }
    void setOpensAtLogin(bool on);
    [[nodiscard]] QString opensAtLoginText() const;
    /// Whether fresh wallpapers come by themselves: never is one of the intervals, and the same as off.
    [[nodiscard]] bool servesFresh() const { return m_store.shuffleMinutes() > 0; }
    void setServesFresh(bool serves);
    [[nodiscard]] QStringList intervalTitles() const;
    /// -1 for another one than can be chosen here.
    [[nodiscard]] int interval() const;
    void setInterval(int index);

    /// Addresses of pictures: 880 points wide, or else 28, 132 and 280.
    [[nodiscard]] QString welcomePicture() const;
    [[nodiscard]] QString examplePicture() const;
    [[nodiscard]] QString exampleThumbnail() const;
    [[nodiscard]] QStringList bowlPictures() const;
    /// Of what is served at the end.
    [[nodiscard]] QString brothPicture() const;

    /// To the next step; from the last one to the end.
    Q_INVOKABLE void goForward();
    Q_INVOKABLE void goBack();

    /// Ends it, once.
    void finish(Ending ending);

    /// The program ends while this is open, which comes again with the next start: keeps a bowl that was not
    /// served as the look to go on with.
    void keepBowl();

Q_SIGNALS:
    void stepChanged();
    void edgeChanged();
    void bowlChanged();
    void motionChanged();
    void opensAtLoginChanged();
    void intervalChanged();

    void finished(tessel::Ending ending);

private:
    void setStep(Step step);
    void serveBowl();

    Store& m_store;
    const OnboardingServices m_services;
    const std::vector<Bowl> m_bowls = bowls();
    Step m_step = Welcome;
    std::optional<int> m_bowl;
    std::optional<int> m_served; ///< the bowl that was put on the desktop last
    qint64 m_minutes;            ///< that the switch of fresh wallpapers turns on
    bool m_isFinished = false;
};

} // namespace tessel
