// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The application's translations lie in share/quarvel/translations beside the program's own folder.
#include "studio/window/Translations.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QCoreApplication>
#include <QLibraryInfo>

void installTranslations(const QLocale& locale)
{
    const QString own = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quarvel/translations");
    PLUG_Manager::installTranslations(locale,
                                      {{QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
                                       {QStringLiteral("quarvel-studio"), own}});
}
