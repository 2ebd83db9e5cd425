// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Python's own program lies anywhere, so plug-ins are looked for beside the host's libraries.
#include "Library.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "jobs/WorkerThreads.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/limits/PictureLimit.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <dlfcn.h>

#include <cstdio>
#include <memory>

namespace {

// Remarks about the machine (a missing folder of the desktop, a font) mean nothing to scripts.
void passGraveMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "vallorin: %s\n", qPrintable(message));
}

class Library
{
public:
    static Library& instance()
    {
        static Library library;
        return library;
    }
    const UT_Result<QStringList>& loaded() const { return _loaded; }
    void end() { _threads.reset(); }

private:
    Library()
    {
        // No window is ever opened. A program that has an application object of its own keeps it.
        if (!QCoreApplication::instance()) {
            if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            qInstallMessageHandler(passGraveMessages);
            // Never taken apart: Python ends in an order that nobody knows.
            static_cast<void>(new QGuiApplication(_count, _words));
        }
        const JobLimits limits = jobLimits();
        limitPictures(limits);
        _threads = std::make_unique<WorkerThreads>(limits.threads);
        _loaded = PLUG_Manager::loadAll(pluginFolder());
    }

    static QString pluginFolder()
    {
        Dl_info library;
        const bool named = qEnvironmentVariableIsSet("QUARVEL_PLUGIN_PATH");
        if (named || dladdr(reinterpret_cast<const void*>(&PLUG_Manager::loadAll), &library) == 0)
            return PLUG_Manager::defaultFolder();
        const QDir folder = QFileInfo(QString::fromLocal8Bit(library.dli_fname)).absoluteDir();
        return folder.filePath(QStringLiteral("quarvel/plugins"));
    }

    int _count = 1;
    char _name[9] = "vallorin";
    char* _words[2] = {_name, nullptr};
    std::unique_ptr<WorkerThreads> _threads;
    UT_Result<QStringList> _loaded = QStringList();
};

bool isStarted = false;

} // namespace

UT_Result<void> startLibrary()
{
    isStarted = true;
    if (const auto& loaded = Library::instance().loaded(); !loaded)
        return loaded.error();
    return {};
}

void endLibrary()
{
    if (isStarted)
        Library::instance().end();
}
