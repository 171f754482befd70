// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/desktops/gnome_pictures.h"

#include "platform/linux/desktops/spanned_picture.h"

#include <QUrl>

namespace tessel {

namespace {

const QString program = QStringLiteral("gsettings");
const QString scaling = QStringLiteral("picture-options");

/// A text as the settings print and read it.
QString quoted(QString text)
{
    const QChar quote = text.contains(QLatin1Char('\'')) ? QLatin1Char('"') : QLatin1Char('\'');
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    if (quote == QLatin1Char('"'))
        text.replace(quote, QLatin1String("\\\""));
    return quote + text + quote;
}

} // namespace

bool GnomePictures::shows(const std::vector<DesktopPicture>& pictures)
{
    return differing(pictures).empty();
}

QStringList GnomePictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    const QString problem = pictures.size() > 1 ? writeSpanned(pictures) : QString();
    if (!problem.isEmpty())
        throw DesktopError{problem};
    changeScaling(pictures.size() > 1);
    for (const auto& [key, value] : which == Which::all ? wanted(pictures) : differing(pictures))
        changeSetting(key, value);
    return {};
}

std::map<QString, QString> GnomePictures::wanted(const std::vector<DesktopPicture>& pictures)
{
    const QStringList known =
        m_calls.run(program, {QStringLiteral("list-keys"), m_schema}).split(QLatin1Char('\n'));
    const QString file = spannedFile(pictures);
    const QString url = QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    std::map<QString, QString> settings{{QStringLiteral("picture-uri"), quoted(url)},
                                        {QStringLiteral("picture-uri-dark"), quoted(url)},
                                        {QStringLiteral("picture-filename"), quoted(file)}};
    std::erase_if(settings, [&known](const auto& setting) { return !known.contains(setting.first); });
    return settings;
}

std::map<QString, QString> GnomePictures::differing(const std::vector<DesktopPicture>& pictures)
{
    std::map<QString, QString> settings = wanted(pictures);
    std::erase_if(settings, [this](const auto& wish) { return setting(wish.first) == wish.second; });
    return settings;
}

void GnomePictures::changeScaling(bool severalMonitors)
{
    // How a picture is scaled is the user's choice, unless it would not be seen as it was made.
    const QString before = setting(scaling);
    if (severalMonitors && before != quoted(QStringLiteral("spanned")))
        changeSetting(scaling, quoted(QStringLiteral("spanned")));
    else if (before == quoted(QStringLiteral("none")))
        changeSetting(scaling, quoted(QStringLiteral("zoom")));
}

QString GnomePictures::setting(const QString& key)
{
    return m_calls.run(program, {QStringLiteral("get"), m_schema, key});
}

void GnomePictures::changeSetting(const QString& key, const QString& value)
{
    m_calls.run(program, {QStringLiteral("set"), m_schema, key, value});
    if (setting(key) != value)
        //: "it" is the desktop; behind a colon
        throw DesktopError{DesktopPictures::tr("its setting “%1” stays as it was.").arg(key)};
}

} // namespace tessel
