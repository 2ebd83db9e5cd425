// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// quarvel: the command line. Its first word names a command.
#include "Completion.h"
#include "ImportCommand.h"
#include "InspectCommand.h"
#include "ManualPage.h"
#include "NearestWord.h"
#include "NormalMapCommand.h"
#include "NormalMapOptions.h"
#include "RenderCommand.h"
#include "RenderOptions.h"
#include "Say.h"
#include "SetCommand.h"
#include "jobs/WorkerThreads.h"
#include "jobs/limits/JobLimits.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

constexpr int kWrongUsage = 2;

struct Command
{
    const char* name;
    const char* words; ///< what stands behind the name
    const char* purpose;
    int (*run)(const QStringList& words);
    QString (*help)();
};

constexpr std::array kCommands{
    Command{"normalmap", "DRAWING... [options]", "turns drawings into normal maps", runNormalMapCommand, normalMapHelp},
    Command{"import", "FILE... -o SCENE [options]", "makes a scene of drawings or an animation", runImportCommand,
            importHelp},
    Command{"inspect", "SCENE|DRAWING|FRAME...", "says what is in it", runInspectCommand, inspectHelp},
    Command{"set", "SCENE WHAT VALUE...", "changes one thing of a scene", runSetCommand, setHelp},
    Command{"render", "SCENE -o FILE [options]", "renders frames of a scene", runRenderCommand, renderHelp},
};

const Command* findCommand(const QString& name)
{
    const auto found =
        std::ranges::find_if(kCommands, [&](const Command& command) { return name == QLatin1String(command.name); });
    return found == kCommands.end() ? nullptr : &*found;
}

void printUsage(FILE* stream)
{
    std::fputs("quarvel - volume for flat drawings\n\n", stream);
    for (const Command& command : kCommands)
        std::fprintf(stream, "  quarvel %-10s%-31s%s\n", command.name, command.words, command.purpose);
    std::fputs("  quarvel help COMMAND                   explains all of a command's options, with examples\n"
               "  quarvel --version                      says which version this is\n"
               "\n"
               "Begin with: quarvel normalmap hero.svg\n"
               "The normal map is written beside the drawing, as hero_n.png.\n",
               stream);
}

int noSuchCommand(const QString& name)
{
    QStringList names;
    for (const Command& command : kCommands)
        names << QLatin1String(command.name);
    const QString nearest = nearestWord(name, names);
    say(QStringLiteral("there is no command \"%1\"; %2")
            .arg(name, nearest.isEmpty() ? QStringLiteral("there is ") + names.join(QStringLiteral(", "))
                                         : QStringLiteral("did you mean %1?").arg(nearest)));
    return kWrongUsage;
}

// The libraries' remarks about the machine (a missing folder of the desktop, a font) mean nothing to people who turn
// drawings into normal maps; what matters is said by the program itself. What would end the program is still told.
void passGraveMessages(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        say(message);
}

std::vector<CommandHelp> commandHelps()
{
    std::vector<CommandHelp> helps;
    for (const Command& command : kCommands)
        helps.push_back({QLatin1String(command.name), command.help()});
    return helps;
}

int print(const QString& text)
{
    std::fputs(qPrintable(text), stdout);
    return 0;
}

int printManual(const QString& name)
{
    const QString version = QStringLiteral(QUARVEL_VERSION);
    if (name == QLatin1String("quarvel"))
        return print(manualOverview(commandHelps(), version));
    for (const CommandHelp& help : commandHelps())
        if (help.name == name)
            return print(manualPage(help, version));
    return noSuchCommand(name);
}

int printCompletion(const QString& shell)
{
    if (shell == QLatin1String("bash"))
        return print(bashCompletion(commandHelps()));
    if (shell == QLatin1String("zsh"))
        return print(zshCompletion(commandHelps()));
    say(QStringLiteral("there is completion for bash and zsh, not for \"%1\"").arg(shell));
    return kWrongUsage;
}

int help(const QStringList& words)
{
    if (words.isEmpty()) {
        printUsage(stdout);
        return 0;
    }
    // What packages install: quarvel help --man quarvel|COMMAND, and quarvel help --completion bash|zsh.
    if (words.size() == 2 && words.first() == QLatin1String("--man"))
        return printManual(words[1]);
    if (words.size() == 2 && words.first() == QLatin1String("--completion"))
        return printCompletion(words[1]);
    const Command* const command = findCommand(words.first());
    if (!command)
        return noSuchCommand(words.first());
    return print(command->help());
}

int run(const QStringList& words)
{
    if (words.isEmpty()) {
        printUsage(stderr);
        return kWrongUsage;
    }
    const QString& name = words.first();
    const QStringList rest = words.sliced(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help"))
        return help(rest);
    if (name == QLatin1String("--version")) {
        std::printf("quarvel %s\n", QUARVEL_VERSION);
        return 0;
    }
    const Command* const command = findCommand(name);
    return command ? command->run(rest) : noSuchCommand(name);
}

// Results that nobody received are a failure: a full disk behind a redirection shows only when the last of them is
// written.
int afterOutput(int exitCode)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return exitCode;
    say(QStringLiteral("the results cannot be written to standard output; see whether the disk is full"));
    return exitCode == 0 ? 1 : exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    // No window is ever opened; without this a machine without a display could not even measure a text.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(passGraveMessages);
    const QGuiApplication application(argc, argv);
    const WorkerThreads threads(jobLimits().threads);
    return afterOutput(run(QCoreApplication::arguments().sliced(1)));
}
