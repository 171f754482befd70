// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/login_item.h"

#include "base/identity.h"
#include "platform/linux/portal.h"
#include "platform/linux/session_desktops.h"
#include "platform/open_address.h"
#include "platform/sandbox.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

#include <array>
#include <map>
#include <utility>

namespace tessel {

namespace {

const auto entryName = QStringLiteral("autostart/%1.desktop").arg(identity::id);

/// Marks an entry that hides the system's because the user switched it off with us, and not elsewhere.
const auto switchedOffByUs = QStringLiteral("X-TesselBroth-SwitchedOff");

using Keys = std::map<QString, QString>;

struct LoginItemText
{
    Q_DECLARE_TR_FUNCTIONS(LoginItemText)
};

/// The keys of a file's group "Desktop Entry", as they stand there; none if it cannot be read.
Keys readEntry(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    Keys keys;
    bool inGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inGroup = line == QStringLiteral("[Desktop Entry]");
        else if (const auto equals = line.indexOf(QLatin1Char('=')); inGroup && equals > 0)
            keys[line.left(equals).trimmed()] = line.mid(equals + 1).trimmed();
    }
    return keys;
}

QString value(const Keys& keys, const QString& key)
{
    const auto found = keys.find(key);
    return found != keys.end() ? found->second : QString();
}

/// Text as the value of any key of type string.
QString escaped(QString text)
{
    return text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
        .replace(QLatin1Char('\n'), QStringLiteral("\\n"))
        .replace(QLatin1Char('\t'), QStringLiteral("\\t"))
        .replace(QLatin1Char('\r'), QStringLiteral("\\r"));
}

QString unescaped(const QString& text)
{
    static const std::map<QChar, QChar> meanings{
        {QLatin1Char('s'), QLatin1Char(' ')},   {QLatin1Char('n'), QLatin1Char('\n')},
        {QLatin1Char('t'), QLatin1Char('\t')},  {QLatin1Char('r'), QLatin1Char('\r')},
        {QLatin1Char('\\'), QLatin1Char('\\')},
    };
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto meaning =
            text[i] == QLatin1Char('\\') && i + 1 < text.size() ? meanings.find(text[i + 1]) : meanings.end();
        if (meaning == meanings.end()) {
            result += text[i];
        } else {
            result += meaning->second;
            ++i;
        }
    }
    return result;
}

bool isSwitchedOff(const Keys& keys)
{
    return value(keys, QStringLiteral("Hidden")) == QStringLiteral("true") ||
           value(keys, QStringLiteral("X-GNOME-Autostart-enabled")) == QStringLiteral("false") ||
           value(keys, QStringLiteral("X-MATE-Autostart-enabled")) == QStringLiteral("false");
}

/// Whether what the entry starts has gone, such as after the program was moved.
bool isDead(const Keys& keys)
{
    const QString program = unescaped(value(keys, QStringLiteral("TryExec")));
    return !program.isEmpty() && QStandardPaths::findExecutable(program).isEmpty();
}

LoginItem::Status statusOf(const Keys& keys)
{
    if (!isSwitchedOff(keys))
        return isDead(keys) ? LoginItem::Status::off : LoginItem::Status::enabled;
    return value(keys, switchedOffByUs) == QStringLiteral("true") ? LoginItem::Status::off
                                                                  : LoginItem::Status::requiresApproval;
}

std::optional<QString> writeEntry(const QString& path, const QString& text)
{
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder))
        return LoginItemText::tr(
                   "The folder %1 could not be made. Check that nothing else has its name and that you may "
                   "write there.")
            .arg(folder);
    const QByteArray bytes = text.toUtf8();
    QSaveFile file(path);
    // Qt does not notice when what it has buffered finds no space.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size() &&
        file.commit())
        return std::nullopt;
    return LoginItemText::tr("The file %1 could not be written: %2.").arg(path, file.errorString());
}

/// A program that sets what is started at login.
struct SettingsProgram
{
    QLatin1String desktop; ///< as in XDG_CURRENT_DESKTOP
    QLatin1String program;
    QLatin1String argument; ///< if there is one
};

constexpr std::array settingsPrograms{
    SettingsProgram{QLatin1String("XFCE"), QLatin1String("xfce4-session-settings"), {}},
    SettingsProgram{QLatin1String("KDE"), QLatin1String("systemsettings"), QLatin1String("kcm_autostart")},
    SettingsProgram{QLatin1String("KDE"), QLatin1String("systemsettings5"), QLatin1String("kcm_autostart")},
    SettingsProgram{QLatin1String("GNOME"), QLatin1String("gnome-tweaks"), {}},
    SettingsProgram{QLatin1String("GNOME"), QLatin1String("gnome-session-properties"), {}},
    SettingsProgram{QLatin1String("LXQt"), QLatin1String("lxqt-config-session"), {}},
    SettingsProgram{QLatin1String("MATE"), QLatin1String("mate-session-properties"), {}},
    SettingsProgram{QLatin1String("X-Cinnamon"), QLatin1String("cinnamon-settings"),
                    QLatin1String("startup")},
};

bool startSettingsProgram()
{
    const QStringList desktops = sessionDesktops();
    for (const auto& [desktop, program, argument] : settingsPrograms) {
        const QStringList arguments = argument.isEmpty() ? QStringList() : QStringList(argument);
        if (desktops.contains(desktop) && QProcess::startDetached(program, arguments))
            return true;
    }
    return false;
}

const auto portalToken = QStringLiteral("login");

} // namespace

AutostartEntry::AutostartEntry(QString program)
    : m_program(std::move(program))
    , m_file(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
             entryName)
{
}

LoginItem::Status AutostartEntry::status() const
{
    // The user's own comes first and is the only one that counts.
    const QString file = QStandardPaths::locate(QStandardPaths::GenericConfigLocation, entryName);
    return file.isEmpty() ? Status::off : statusOf(readEntry(file));
}

std::optional<QString> AutostartEntry::switchOn()
{
    const Status before = status();
    if (before == Status::requiresApproval)
        return LoginItemText::tr(
            "Tessel Broth was switched off in the desktop's settings of what is started at login. "
            "Please switch it on there.");
    if (before == Status::enabled)
        return std::nullopt;
    const auto text = QStringLiteral("[Desktop Entry]\n"
                                     "Type=Application\n"
                                     "Name=%1\n"
                                     "Icon=%2\n"
                                     "Exec=%3\n"
                                     "TryExec=%4\n"
                                     "Terminal=false\n")
                          .arg(identity::name, identity::id, execValue(m_program), escaped(m_program));
    if (auto failure = writeEntry(m_file, text))
        return failure;
    if (status() != Status::enabled)
        return LoginItemText::tr("The program %1 cannot be started at login, because it cannot be run.")
            .arg(m_program);
    return std::nullopt;
}

std::optional<QString> AutostartEntry::switchOff()
{
    if (status() != Status::enabled)
        return std::nullopt;
    if (QFile file(m_file); file.exists() && !file.remove())
        return LoginItemText::tr("The file %1 could not be removed: %2.").arg(m_file, file.errorString());
    if (status() == Status::off)
        return std::nullopt;
    // The system's entry for all users is left.
    return writeEntry(
        m_file, QStringLiteral("[Desktop Entry]\nType=Application\nName=Tessel Broth\nHidden=true\n%1=true\n")
                    .arg(switchedOffByUs));
}

void AutostartEntry::openSettings(QObject* context, const Done& done)
{
    if (startSettingsProgram()) {
        done(std::nullopt);
        return;
    }
    const QString folder = QFileInfo(m_file).path();
    const auto ended = [folder, done](bool isOpen) {
        if (isOpen)
            done(std::nullopt);
        else
            done(LoginItemText::tr("Nothing was found that shows them. Each is a file in the folder\n%1")
                     .arg(folder));
    };
    if (QDir().mkpath(folder))
        openAddress(QUrl::fromLocalFile(folder), context, ended);
    else
        ended(false);
}

PortalLoginItem::PortalLoginItem(QDBusConnection bus, QString mark)
    : m_bus(std::move(bus))
    , m_mark(std::move(mark))
{
    m_bus.connect({}, portal::answerPath(m_bus, portalToken), portal::request, portal::response, this,
                  SLOT(hear(uint, QVariantMap)));
}

LoginItem::Status PortalLoginItem::status() const
{
    if (m_isForbidden)
        return Status::requiresApproval;
    return QFile::exists(m_mark) ? Status::enabled : Status::off;
}

void PortalLoginItem::registerItem(const Done& done)
{
    ask(true, done);
}

void PortalLoginItem::unregisterItem(const Done& done)
{
    ask(false, done);
}

void PortalLoginItem::openSettings(QObject* /*context*/, const Done& done)
{
    done(tr("They are out of reach from within a sandbox. Please open the settings of your desktop."));
}

void PortalLoginItem::ask(bool on, const Done& done)
{
    if (m_done) {
        done(tr("Your desktop still waits for your answer to the last time."));
        return;
    }
    // Of a call on no bus nothing is ever heard again.
    if (!m_bus.isConnected()) {
        done(tr("The desktop's portal cannot be reached, because there is no session bus."));
        return;
    }
    m_done = done;
    m_isOnWanted = on;
    auto call = QDBusMessage::createMethodCall(portal::service, portal::path,
                                               QStringLiteral("org.freedesktop.portal.Background"),
                                               QStringLiteral("RequestBackground"));
    const QString window; // none that the question would belong to
    call << window
         << QVariantMap{{portal::handleToken, portalToken},
                        {QStringLiteral("reason"), tr("Tessel Broth puts your wallpaper back at login.")},
                        {QStringLiteral("autostart"), on},
                        {QStringLiteral("commandline"), QStringList(QStringLiteral("tessel-broth"))}};
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            end(tr("The desktop's portal has not taken it: %1").arg(watcher->error().message()));
    });
}

void PortalLoginItem::hear(uint response, const QVariantMap& results)
{
    const bool isOn = response == portal::agreed && results.value(QStringLiteral("autostart")).toBool();
    m_isForbidden = m_isOnWanted && !isOn && response <= portal::cancelled;
    // Without the mark it is asked once more, which does no harm.
    if (isOn && QDir().mkpath(QFileInfo(m_mark).path()))
        static_cast<void>(QFile(m_mark).open(QIODevice::WriteOnly));
    else if (response <= portal::cancelled)
        QFile::remove(m_mark);
    end(response <= portal::cancelled ? std::nullopt
                                      : std::optional(tr("The desktop's portal could not do it.")));
}

void PortalLoginItem::end(const std::optional<QString>& failure)
{
    if (const Done done = std::exchange(m_done, nullptr))
        done(failure);
}

QString execValue(const QString& program)
{
    static const QString special = QStringLiteral(" \t\n\"'\\><~|&;$*?#()`");
    static const QString escapedWithinQuotes = QStringLiteral("\"`$\\");
    QString argument;
    bool needsQuotes = false;
    for (const QChar character : program) {
        needsQuotes = needsQuotes || special.contains(character);
        if (escapedWithinQuotes.contains(character))
            argument += QLatin1Char('\\');
        // A single one would begin a field code.
        argument += character == QLatin1Char('%') ? QStringLiteral("%%") : QString(character);
    }
    return escaped(needsQuotes ? QLatin1Char('"') + argument + QLatin1Char('"') : argument);
}

std::unique_ptr<LoginItem> makeLoginItem()
{
    // Within a sandbox our entry would be written where no desktop looks for it.
    if (isSandboxed())
        return std::make_unique<PortalLoginItem>(
            QDBusConnection::sessionBus(),
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') +
                identity::folder + QStringLiteral("/starts-at-login"));
    return std::make_unique<AutostartEntry>(QCoreApplication::applicationFilePath());
}

QString approvalText()
{
    return LoginItemText::tr(
        "Your system needs your OK before Tessel Broth can open at login. You can allow it in the system "
        "settings, among the programs that start at login.");
}

} // namespace tessel
