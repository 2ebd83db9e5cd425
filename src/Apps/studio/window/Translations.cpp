// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The application's translations lie in share/quarvel/translations beside the program's own folder. Those of Qt's own
// texts that a person meets here are among them, because Qt's may not be installed; where they are, they win.
#include "studio/window/Translations.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QCoreApplication>
#include <QLibraryInfo>

void installTranslations(const QLocale& locale)
{
    const QString own = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/quarvel/translations");
    PLUG_Manager::installTranslations(locale,
                                      {{QStringLiteral("qt-texts"), own},
                                       {QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
                                       {QStringLiteral("quarvel-studio"), own}});
}
