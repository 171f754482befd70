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

QStringList GnomePictures::apply(const std::vector<DesktopPicture>& pictures, Which which)
{
    try {
        change(pictures, which);
    } catch (const DesktopError& error) {
        return refusals(pictures, error.reason);
    }
    return {};
}

void GnomePictures::change(const std::vector<DesktopPicture>& pictures, Which which)
{
    const QStringList known =
        m_calls.run(program, {QStringLiteral("list-keys"), m_schema}).split(QLatin1Char('\n'));
    const QString problem = pictures.size() > 1 ? writeSpanned(pictures) : QString();
    if (!problem.isEmpty())
        throw DesktopError{problem};
    const QString file = spannedFile(pictures);
    const QString url = QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
    const std::pair<QString, QString> values[] = {{QStringLiteral("picture-uri"), url},
                                                  {QStringLiteral("picture-uri-dark"), url},
                                                  {QStringLiteral("picture-filename"), file}};
    changeScaling(pictures.size() > 1);
    for (const auto& [key, value] : values)
        if (known.contains(key) && (which == Which::all || setting(key) != quoted(value)))
            changeSetting(key, quoted(value));
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
        throw DesktopError{QStringLiteral("its setting “%1” stays as it was.").arg(key)};
}

} // namespace tessel
