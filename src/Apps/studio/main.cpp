// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// quarvel-studio: the desktop application. Paths on the command line are opened as if they were dropped on the window.
#include "QuarvelPlugInManager/PLUG_EditorWidgets.h"
#include "QuarvelPlugInManager/PLUG_Manager.h"
#include "QuarvelPlugInManager/PLUG_Services.h"
#include "jobs/ProgramEnd.h"
#include "jobs/WorkerThreads.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/limits/PictureLimit.h"
#include "studio/window/Appearance.h"
#include "studio/window/Icons.h"
#include "studio/window/MainWindow.h"
#include "studio/window/MessageBar.h"
#include "studio/window/PictureRates.h"
#include "studio/window/Screenshots.h"
#include "studio/window/Translations.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>

#include <cstdio>

namespace {

const QString kScreenshots = QStringLiteral("screenshots");
const QString kPictureRates = QStringLiteral("picture-rates");

int complain(const QString& text)
{
    QMessageBox::critical(nullptr, QApplication::applicationDisplayName(), text);
    return 1;
}

void nameApplication()
{
    QApplication::setApplicationName(QStringLiteral("quarvel-studio"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quarvel Studio"));
    QApplication::setOrganizationName(QStringLiteral("Vallorin"));
    QApplication::setApplicationVersion(QStringLiteral(QUARVEL_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.vallorin.QuarvelStudio"));
    QApplication::setWindowIcon(applicationIcon());
}

// The options are for the makers of the program.
void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QApplication::translate("main", "Volume for flat drawings"));
    parser.addHelpOption();
    parser.addVersionOption();
    QCommandLineOption screenshots(kScreenshots,
                                   QApplication::translate("main", "Write pictures of the windows and end."),
                                   QStringLiteral("folder"));
    screenshots.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(screenshots);
    QCommandLineOption pictureRates(
        kPictureRates, QApplication::translate("main", "Print how many pictures a second the window shows, and end."));
    pictureRates.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(pictureRates);
    parser.addPositionalArgument(QStringLiteral("files"),
                                 QApplication::translate("main", "A scene, or drawings to import."));
}

// Where there are no real windows, Qt complains about each that its size is told to nobody.
void passMessages(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message != QLatin1String("This plugin does not support propagateSizeHints()"))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
}

// What a crash left comes first, whatever the program was started with. Files do not take the place of what was just
// recovered.
void beginWith(MainWindow& window, const QStringList& files)
{
    const bool isRecovered = window.offerRecovery();
    if (files.isEmpty())
        return;
    if (!isRecovered)
        return window.openPaths(files);
    window.messages().showNotice(window.messages().text() + QLatin1Char('\n') +
                                 QApplication::translate("main", "Not opened, because a scene was recovered: %1")
                                     .arg(files.join(QStringLiteral(", "))));
}

int run(int argc, char** argv)
{
    QApplication application(argc, argv);
    nameApplication();
    PLUG_EditorWidgets widgets;
    PLUG_Services::setWidgetFactoryRegistry(&widgets);
    const auto loaded = PLUG_Manager::loadAll(PLUG_Manager::defaultFolder());
    installTranslations(QLocale());

    QCommandLineParser parser;
    addOptions(parser);
    parser.process(application);
    const JobLimits limits = jobLimits();
    limitPictures(limits);
    const WorkerThreads threads(limits.threads);

    if (!loaded)
        return complain(loaded.error().sentence());
    if (parser.isSet(kScreenshots) || parser.isSet(kPictureRates))
        qInstallMessageHandler(passMessages);
    if (parser.isSet(kScreenshots))
        return makeScreenshots(parser.value(kScreenshots));
    if (parser.isSet(kPictureRates))
        return printPictureRates();
    applyAppearance(storedAppearance());

    MainWindow window;
    window.show();
    beginWith(window, parser.positionalArguments());
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    return endProgram(run(argc, argv));
}
