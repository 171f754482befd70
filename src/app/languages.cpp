// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/languages.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace tessel {

namespace {

/// Takes the texts of a language from a file such as "tessel-broth_de.qm".
/// \return whether there is one
bool take(const QLocale& language, const QString& name, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(language, name, QStringLiteral("_"), folder))
        return false;
    translator->setParent(qGuiApp);
    return QCoreApplication::installTranslator(translator.release());
}

QString folder()
{
    return qEnvironmentVariable("TESSEL_TRANSLATIONS", QStringLiteral(":/translations"));
}

} // namespace

void speakTheUsersLanguage()
{
    for (const QString& name : QLocale().uiLanguages()) {
        const QLocale language(name);
        // Whoever would rather read English than a language further down is at the end here: it is the
        // sources'.
        if (language.language() == QLocale::English)
            return;
        if (take(language, QStringLiteral("tessel-broth"), folder())) {
            // Qt's own texts, such as those of file dialogs. They are a package of their own.
            take(language, QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            QGuiApplication::setLayoutDirection(language.textDirection());
            return;
        }
    }
}

} // namespace tessel
