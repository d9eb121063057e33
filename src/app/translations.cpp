// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QSettings>
#include <QTranslator>

#include <memory>

static bool load(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!translator->load(name, folder))
        return false;
    // The application owns it by now.
    return QCoreApplication::installTranslator(translator.release());
}

void Translations::install(const QString &folder)
{
    const QSettings settings(QSettings::IniFormat, QSettings::UserScope,
                             QStringLiteral("KelmoWare"), QStringLiteral("IDE"));
    const QString language = settings.value(QStringLiteral("Language")).toString();
    if (language != QLatin1String("zh_CN"))
        return;

    const QString qtCatalogue = QStringLiteral("qtbase_") + language;
    if (!load(qtCatalogue, QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        load(qtCatalogue, folder);
    // Plugins bring catalogues of their own; what Qt has is loaded already.
    const QStringList catalogues = QDir(folder).entryList(
        {QStringLiteral("*_") + language + QStringLiteral(".qm")}, QDir::Files, QDir::Name);
    for (const QString &catalogue : catalogues) {
        if (!catalogue.startsWith(QLatin1String("qtbase_")))
            load(catalogue, folder);
    }
}
