// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PLUG_Manager: finds plug-ins in a folder and loads them.
//
// A plug-in is a folder named after the keyword of the node that it adds; it holds one loadable library of the same
// name and, optionally, a folder "resources". A plug-in registers its nodes with the module factory while it is being
// loaded.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelPlugInManager/QuarvelPlugInManagerExport.h"

#include <QList>
#include <QLocale>
#include <QStringList>

namespace PLUG_Manager {

/// The folder of a program's plug-ins: lib/quarvel/plugins beside the program's own folder bin, wherever both are
/// installed or built, unless the environment variable QUARVEL_PLUGIN_PATH names another.
///
/// Anybody who can put a file into that folder can run code as the user. So the variable is ignored, with a critical
/// message of Qt, when its path is relative, or when everybody may change the folder, an entry up to two levels below
/// it, or a folder above it (folders that protect their users' files from each other, such as /tmp, are allowed above).
QUARVELPLUGINMANAGER_EXPORT QString defaultFolder();

/// Loads every plug-in of a folder, in the order of their names. Plug-ins stay loaded until the process ends; one that
/// is already loaded is not loaded again. To be called from the main thread, before scenes are made.
///
/// @return the keywords of the loaded plug-ins, or what is wrong with the folder or with the first plug-in that does
/// not load
QUARVELPLUGINMANAGER_EXPORT UT_Result<QStringList> loadAll(const QString& folder);

/// A catalogue of translated texts: the files "FOLDER/NAME_LOCALE.qm", where LOCALE is a language, or a language and a
/// country.
struct Catalogue
{
    QString name;
    QString folder;
};

/// Installs translations for a locale: those of a program's own catalogues, and those in the folders "resources" of the
/// loaded plug-ins, each under the plug-in's keyword. The locale lists the user's languages; the first one that a
/// catalogue has is used, and English, the language of the sources, ends the search. Translations that this function
/// installed before are removed. Texts that are already shown stay unchanged. To be called from the main thread, while
/// there is an application object.
///
/// @return the names of the catalogues that have a translation for the locale
QUARVELPLUGINMANAGER_EXPORT QStringList installTranslations(const QLocale& locale, const QList<Catalogue>& own = {});

} // namespace PLUG_Manager
