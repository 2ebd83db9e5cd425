// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PLUG_Manager: finds plug-ins in a folder and loads them.
//
// A plug-in is a folder named after the keyword of the node that it adds; it holds one loadable library of the same
// name and, where it has any, a folder "resources". A plug-in registers its nodes with the module factory while it is
// being loaded.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelPlugInManager/QuarvelPlugInManagerExport.h"

#include <QList>
#include <QLocale>
#include <QStringList>

namespace PLUG_Manager {

/// The folder where a program's plug-ins lie: lib/quarvel/plugins beside the program's own folder bin, wherever both
/// were installed or built, unless the environment variable QUARVEL_PLUGIN_PATH names another.
///
/// Whoever can put a file into that folder can run code as the user, so the variable counts only where it names an
/// absolute path and where not everybody may change the folder, one above it (unless its files are protected from each
/// other's users, as those of /tmp are), or what lies in it two levels deep. Otherwise a critical message of Qt says
/// why it was ignored.
QUARVELPLUGINMANAGER_EXPORT QString defaultFolder();

/// Loads every plug-in of a folder, in the order of their names. Plug-ins stay loaded until the process ends; one that
/// is loaded already is left alone. To be called from the main thread, before scenes are made.
///
/// @return the keywords of the plug-ins that are loaded, or what is wrong with the folder or the first plug-in that
/// does not load
QUARVELPLUGINMANAGER_EXPORT UT_Result<QStringList> loadAll(const QString& folder);

/// A catalogue of translated texts: the files "FOLDER/NAME_LOCALE.qm", where LOCALE is a language, or a language and a
/// country.
struct Catalogue
{
    QString name;
    QString folder;
};

/// Installs translations for a locale: those of a program's own catalogues, and those that the loaded plug-ins bring in
/// their folders "resources", each under the plug-in's keyword. Of the languages that the locale's user reads, the
/// first one that a catalogue has counts; English, which the sources speak, ends the search. Translations installed
/// before by this function are taken out. Texts that were shown before stay as they are. To be called from the main
/// thread, while there is an application object.
///
/// @return the names of the catalogues that have a translation for the locale
QUARVELPLUGINMANAGER_EXPORT QStringList installTranslations(const QLocale& locale, const QList<Catalogue>& own = {});

} // namespace PLUG_Manager
