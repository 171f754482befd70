// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/gnome_pictures.h"
#include "platform/linux/desktops/lxqt_pictures.h"
#include "platform/linux/desktops/plasma_pictures.h"
#include "platform/linux/desktops/xfce_pictures.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tessel {

namespace {

/// What every desktop answers, whatever it is asked: one line after the other, and then again.
QList<QByteArray> answers;
qsizetype asked = 0;

QByteArray nextAnswer()
{
    return answers[asked++ % answers.size()];
}

/// "key=value" as a setting; its first character says of which type the value is.
QVariant typed(const QByteArray& value)
{
    const QByteArray rest = value.mid(1);
    switch (value.isEmpty() ? 's' : value.front()) {
    case 'i':
        return rest.toInt();
    case 'b':
        return !rest.isEmpty();
    case 'l':
        return QStringList{QString::fromUtf8(rest)};
    case 'm':
        return QVariantMap{{QString::fromUtf8(rest), rest}};
    case 'n':
        return {};
    default:
        return QString::fromUtf8(rest);
    }
}

QVariantMap settings()
{
    QVariantMap map;
    for (const QByteArray& line : answers)
        if (const qsizetype equals = line.indexOf('='); equals >= 0)
            map.insert(QString::fromUtf8(line.first(equals)), typed(line.mid(equals + 1)));
    return map;
}

[[noreturn]] void complain(const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::abort();
}

} // namespace

// Nobody is really asked: these stand in for the calls over D-Bus and to programs.
DesktopCalls::DesktopCalls(QDBusConnection bus, std::chrono::milliseconds patience)
    : m_bus(std::move(bus))
    , m_patience(patience)
{
}

QVariantList DesktopCalls::call(const Method& method, const QVariantList& /*arguments*/)
{
    if (method.name == QLatin1String("GetAllProperties"))
        return {settings()};
    if (nextAnswer().isEmpty())
        throw DesktopError{QStringLiteral("it does not answer.")};
    return {typed(nextAnswer()), typed(nextAnswer())};
}

QString DesktopCalls::run(const QString& /*program*/, const QStringList& /*arguments*/)
{
    return QString::fromUtf8(nextAnswer()).trimmed().replace(QLatin1Char('\t'), QLatin1Char('\n'));
}

QString settingsProfile(std::uint32_t process)
{
    return QString::number(process % 2);
}

namespace {

void ask(PictureBackend& desktop, const std::vector<DesktopPicture>& pictures)
{
    for (const auto which : {PictureBackend::Which::all, PictureBackend::Which::different}) {
        asked = 0;
        QStringList failures;
        try {
            static_cast<void>(desktop.shows(pictures));
            failures = desktop.apply(pictures, which);
        } catch (const DesktopError& error) {
            failures = refusals(pictures, error.reason);
        }
        if (failures.size() > static_cast<qsizetype>(pictures.size()))
            complain(QStringLiteral("too many failures"));
        for (const QString& failure : failures)
            if (failure.size() > 1000)
                complain(failure);
    }
}

/// A settings file for LXQt with this text.
void writeLxqtSettings(const QString& folder, const QByteArray& text)
{
    QDir().mkpath(folder);
    QFile file(folder + QStringLiteral("/settings.conf"));
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(text);
}

} // namespace

} // namespace tessel

using namespace tessel;

/// The input's lines are what a desktop answers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    answers = input.split('\n');
    const QDBusConnection bus{QString()};
    const std::vector<DesktopPicture> one{
        {{QStringLiteral("A"), QRect(0, 0, 8, 6)}, QStringLiteral("/a.png")}};
    const std::vector<DesktopPicture> two{
        one.front(), {{QStringLiteral("B"), QRect(8, 0, 8, 6)}, QStringLiteral("/b.png")}};
    for (const auto& pictures : {one, two}) {
        PlasmaPictures plasma(bus);
        ask(plasma, pictures);
        XfcePictures xfce(bus, answers.front().toInt());
        ask(xfce, pictures);
        GnomePictures gnome(bus, QStringLiteral("schema"));
        ask(gnome, pictures);
    }
    writeLxqtSettings(home.filePath(QStringLiteral("pcmanfm-qt/0")), input);
    LxqtPictures lxqt(bus);
    ask(lxqt, one);
    return 0;
}
