// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/login_item.h"

#include <QCoreApplication>
#include <QDesktopServices>
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

const auto entryName = QStringLiteral("autostart/org.tesselbroth.TesselBroth.desktop");

/// Marks an entry that hides the system's because the user switched it off with us, and not elsewhere.
const auto switchedOffByUs = QStringLiteral("X-TesselBroth-SwitchedOff");

using Keys = std::map<QString, QString>;

QString tr(const char* text)
{
    return QCoreApplication::translate("LoginItem", text);
}

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
           value(keys, QStringLiteral("X-GNOME-Autostart-enabled")) == QStringLiteral("false");
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
    QSaveFile file(path);
    if (QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
        file.write(text.toUtf8()) >= 0 && file.commit())
        return std::nullopt;
    return tr("The file %1 could not be written: %2.")
        .arg(QDir::toNativeSeparators(path), file.errorString());
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
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
    for (const auto& [desktop, program, argument] : settingsPrograms) {
        const QStringList arguments = argument.isEmpty() ? QStringList() : QStringList(argument);
        if (desktops.contains(desktop) && QProcess::startDetached(program, arguments))
            return true;
    }
    return false;
}

/// Within a sandbox our entry would be written where no desktop looks for it.
class SandboxedLoginItem : public LoginItem
{
public:
    [[nodiscard]] Status status() const override { return Status::off; }

    [[nodiscard]] std::optional<QString> registerItem() override
    {
        return tr("This version of Tessel Broth runs in a sandbox and cannot set what is started at login. "
                  "Please add it in the settings of your desktop.");
    }

    [[nodiscard]] std::optional<QString> unregisterItem() override { return std::nullopt; }

    void openSettings() override
    {
        // The desktop's programs are out of reach.
    }
};

bool isSandboxed()
{
    return qEnvironmentVariableIsSet("FLATPAK_ID") || QFile::exists(QStringLiteral("/.flatpak-info"));
}

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

std::optional<QString> AutostartEntry::registerItem()
{
    const Status before = status();
    if (before == Status::requiresApproval)
        return tr("Tessel Broth was switched off in the desktop's settings of what is started at login. "
                  "Please switch it on there.");
    if (before == Status::enabled)
        return std::nullopt;
    const auto text = QStringLiteral("[Desktop Entry]\n"
                                     "Type=Application\n"
                                     "Name=Tessel Broth\n"
                                     "Icon=org.tesselbroth.TesselBroth\n"
                                     "Exec=%1\n"
                                     "TryExec=%2\n"
                                     "Terminal=false\n")
                          .arg(execValue(m_program), escaped(m_program));
    if (auto failure = writeEntry(m_file, text))
        return failure;
    if (status() != Status::enabled)
        return tr("The program %1 cannot be started at login, because it cannot be run.").arg(m_program);
    return std::nullopt;
}

std::optional<QString> AutostartEntry::unregisterItem()
{
    if (status() != Status::enabled)
        return std::nullopt;
    if (QFile file(m_file); file.exists() && !file.remove())
        return tr("The file %1 could not be removed: %2.").arg(m_file, file.errorString());
    if (status() == Status::off)
        return std::nullopt;
    // The system's entry for all users is left.
    return writeEntry(
        m_file, QStringLiteral("[Desktop Entry]\nType=Application\nName=Tessel Broth\nHidden=true\n%1=true\n")
                    .arg(switchedOffByUs));
}

void AutostartEntry::openSettings()
{
    const QString folder = QFileInfo(m_file).path();
    if (!startSettingsProgram() && QDir().mkpath(folder))
        QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
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
    if (isSandboxed())
        return std::make_unique<SandboxedLoginItem>();
    return std::make_unique<AutostartEntry>(QCoreApplication::applicationFilePath());
}

} // namespace tessel
