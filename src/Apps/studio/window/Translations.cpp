// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Translations lie in share/quarvel/translations beside the program's own folder.
#include "studio/window/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void loadTranslations(QCoreApplication& application)
{
    const QString own = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quarvel/translations");
    const std::pair<QString, QString> catalogues[] = {
        {QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
        {QStringLiteral("quarvel-studio"), own},
    };
    for (const auto& [name, folder] : catalogues) {
        auto* const translator = new QTranslator(&application);
        if (translator->load(QLocale(), name, QStringLiteral("_"), folder))
            QCoreApplication::installTranslator(translator);
        else
            delete translator;
    }
}
