// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Loading plug-ins from a folder.
#include "QuarvelPlugInManager/PLUG_Manager.h"

#include "QuarvelPlugInManager/PLUG_Services.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <QPointer>
#include <QTranslator>

#include <memory>
#include <utility>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

QString libraryIn(const QDir& folder)
{
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        if (QLibrary::isLibrary(name) && QFileInfo(name).baseName().endsWith(folder.dirName()))
            return folder.filePath(name);
    return {};
}

UT_Result<void> load(const QDir& folder)
{
    const QString path = libraryIn(folder);
    if (path.isEmpty())
        return UT_Error{
            QStringLiteral("the plug-in folder %1 holds no library named after it; install the plug-in again")
                .arg(folder.absolutePath())};
    // Registration runs while the library is loading and may already ask for the plug-in's folder.
    PLUG_Services::setPluginPath(folder.dirName(), folder.absolutePath());
    QLibrary library(path);
    // A missing symbol must be reported here, not in the middle of a render.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (library.load())
        return {};
    PLUG_Services::setPluginPath(folder.dirName(), QString());
    return UT_Error{QStringLiteral("the plug-in %1 does not load: %2").arg(path, library.errorString())};
}

bool everybodyMayChange(const QString& path)
{
    return QFileInfo(path).permission(QFile::WriteOther);
}

// True when users cannot replace each other's files in a folder that everybody may change (the sticky bit).
bool protectsItsFiles(const QString& folder)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return ::stat(QFile::encodeName(folder).constData(), &status) == 0 && (status.st_mode & S_ISVTX) != 0;
#else
    Q_UNUSED(folder)
    return false;
#endif
}

// The path that everybody may change: the folder, an entry up to two levels below it, or a folder above it. Empty when
// there is none.
QString changeableByEverybody(const QString& folder)
{
    if (everybodyMayChange(folder))
        return folder;
    for (QString above = folder; !QDir(above).isRoot();) {
        above = QFileInfo(above).path();
        if (everybodyMayChange(above) && !protectsItsFiles(above))
            return above;
    }
    constexpr auto kAll = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& plugin : QDir(folder).entryInfoList(kAll)) {
        if (everybodyMayChange(plugin.filePath()))
            return plugin.filePath();
        if (plugin.isDir())
            for (const QFileInfo& file : QDir(plugin.filePath()).entryInfoList(kAll))
                if (everybodyMayChange(file.filePath()))
                    return file.filePath();
    }
    return {};
}

// Why plug-ins are not loaded from a folder that the environment names; empty when they are.
QString reasonToIgnore(const QString& folder)
{
    if (!QDir::isAbsolutePath(folder))
        return QStringLiteral("expected an absolute path, got \"%1\"; where a relative one leads depends on where the "
                              "program is started")
            .arg(folder);
    const QString real = QFileInfo(folder).canonicalFilePath();
    const QString open = real.isEmpty() ? QString() : changeableByEverybody(real);
    return open.isEmpty() ? QString() : QStringLiteral("everybody may change \"%1\"").arg(open);
}

/// The installed translators. They belong to the application.
QList<QPointer<QTranslator>>& installedTranslators()
{
    static QList<QPointer<QTranslator>> translators;
    return translators;
}

// QTranslator's own search would skip English and load a language that the user ranks below it.
bool loadFirst(QTranslator& translator, const QLocale& locale, const PLUG_Manager::Catalogue& catalogue)
{
    for (QString language : locale.uiLanguages()) {
        if (QLocale(language).language() == QLocale::English || language == QLatin1String("C"))
            return false;
        const QString file = catalogue.name + u'_' + language.replace(u'-', u'_');
        if (translator.load(file, catalogue.folder, QStringLiteral("_")))
            return true;
    }
    return false;
}

} // namespace

QString PLUG_Manager::defaultFolder()
{
    QString named = qEnvironmentVariable("QUARVEL_PLUGIN_PATH");
    const QString why = named.isEmpty() ? QString() : reasonToIgnore(named);
    if (!why.isEmpty())
        qCritical("QUARVEL_PLUGIN_PATH is ignored: %s", qUtf8Printable(why));
    else if (!named.isEmpty())
        return named;
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" QUARVEL_PLUGINS_FROM_PROGRAMS));
}

UT_Result<QStringList> PLUG_Manager::loadAll(const QString& folder)
{
    const QDir plugins(folder);
    if (!plugins.exists())
        return UT_Error{
            QStringLiteral("the plug-in folder %1 does not exist; set QUARVEL_PLUGIN_PATH to the folder that "
                           "holds the plug-ins")
                .arg(folder)};
    QStringList keywords;
    for (const QString& name : plugins.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (PLUG_Services::getPluginPath(name).isEmpty())
            if (const UT_Result<void> loaded = load(QDir(plugins.filePath(name))); !loaded)
                return loaded.error();
        keywords.append(name);
    }
    return keywords;
}

QStringList PLUG_Manager::installTranslations(const QLocale& locale, const QList<Catalogue>& own)
{
    for (const QPointer<QTranslator>& translator : std::exchange(installedTranslators(), {}))
        delete translator;
    QList<Catalogue> catalogues = own;
    for (const QString& keyword : PLUG_Services::loadedPlugins())
        catalogues.append({keyword, PLUG_Services::getPluginPath(keyword) + QStringLiteral("/resources")});
    QStringList translated;
    for (const Catalogue& catalogue : catalogues) {
        auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
        if (!loadFirst(*translator, locale, catalogue) || !QCoreApplication::installTranslator(translator.get()))
            continue;
        installedTranslators().append(translator.release());
        translated.append(catalogue.name);
    }
    return translated;
}
