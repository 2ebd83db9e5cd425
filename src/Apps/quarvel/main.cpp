// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// quarvel: the command line. Its first word names a command.
#include "NormalMapCommand.h"
#include "NormalMapOptions.h"

#include <QGuiApplication>

#include <cstdio>

namespace {

constexpr int kWrongUsage = 2;

void printUsage(FILE* stream)
{
    std::fputs("quarvel - volume for flat drawings\n"
               "\n"
               "  quarvel normalmap DRAWING... [options]   turns SVG drawings into normal maps\n"
               "  quarvel help normalmap                   explains all of its options, with examples\n"
               "  quarvel --version                        says which version this is\n"
               "\n"
               "Begin with: quarvel normalmap hero.svg\n"
               "The normal map is written beside the drawing, as hero_n.png.\n",
               stream);
}

// The libraries' remarks about the machine (a missing folder of the desktop, a font) mean nothing to people who turn
// drawings into normal maps; what matters is said by the program itself. What would end the program is still told.
void passGraveMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "quarvel: %s\n", qPrintable(message));
}

int help(const QStringList& words)
{
    if (words.isEmpty()) {
        printUsage(stdout);
        return 0;
    }
    if (words.first() == QLatin1String("normalmap")) {
        std::fputs(qPrintable(normalMapHelp()), stdout);
        return 0;
    }
    std::fprintf(stderr, "quarvel: there is no command \"%s\"; there is normalmap\n", qPrintable(words.first()));
    return kWrongUsage;
}

int run(const QStringList& words)
{
    if (words.isEmpty()) {
        printUsage(stderr);
        return kWrongUsage;
    }
    const QString& command = words.first();
    const QStringList rest = words.sliced(1);
    if (command == QLatin1String("--help") || command == QLatin1String("-h") || command == QLatin1String("help"))
        return help(rest);
    if (command == QLatin1String("--version")) {
        std::printf("quarvel %s\n", QUARVEL_VERSION);
        return 0;
    }
    if (command == QLatin1String("normalmap"))
        return runNormalMapCommand(rest);
    std::fprintf(stderr, "quarvel: there is no command \"%s\"; quarvel --help lists what there is\n",
                 qPrintable(command));
    return kWrongUsage;
}

} // namespace

int main(int argc, char** argv)
{
    // No window is ever opened; without this a machine without a display could not even measure a text.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(passGraveMessages);
    const QGuiApplication application(argc, argv);
    return run(QCoreApplication::arguments().sliced(1));
}
