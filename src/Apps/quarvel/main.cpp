// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// quarvel: the command line. Its first word names a command.
#include "Completion.h"
#include "ExitCodes.h"
#include "ImportCommand.h"
#include "InputAdvice.h"
#include "InspectCommand.h"
#include "ManualPage.h"
#include "NameEncoding.h"
#include "NormalMapCommand.h"
#include "NormalMapOptions.h"
#include "RenderCommand.h"
#include "RenderOptions.h"
#include "Report.h"
#include "Say.h"
#include "SetCommand.h"
#include "StopSignal.h"
#include "TerminalModes.h"
#include "jobs/ProgramEnd.h"
#include "jobs/ResultStream.h"
#include "jobs/WorkerThreads.h"
#include "jobs/limits/JobLimits.h"
#include "jobs/limits/PictureLimit.h"
#include "jobs/text/NearestWord.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <vector>

namespace {

struct Command
{
    const char* name;
    const char* words; ///< the words after the name
    const char* purpose;
    int (*run)(const QStringList& words, Report& report);
    QString (*help)();
    bool takesAnyNames; ///< of files that are read, also such as are no text
};

constexpr std::array kCommands{
    Command{"normalmap", "DRAWING... [options]", "turns drawings into normal maps", runNormalMapCommand, normalMapHelp,
            true},
    Command{"import", "FILE... -o SCENE [options]", "makes a scene of drawings or an animation", runImportCommand,
            importHelp, true},
    Command{"inspect", "SCENE|DRAWING|FRAME...", "says what is in it", runInspectCommand, inspectHelp, true},
    Command{"set", "SCENE WHAT VALUE...", "changes one thing of a scene", runSetCommand, setHelp, false},
    Command{"render", "SCENE -o FILE [options]", "renders frames of a scene", runRenderCommand, renderHelp, false},
};

const Command* findCommand(const QString& name)
{
    const auto found =
        std::ranges::find_if(kCommands, [&](const Command& command) { return name == QLatin1String(command.name); });
    return found == kCommands.end() ? nullptr : &*found;
}

void printUsage(std::FILE* stream)
{
    std::fputs("quarvel - volume for flat drawings\n\n", stream);
    for (const Command& command : kCommands)
        std::fprintf(stream, "  quarvel %-10s%-31s%s\n", command.name, command.words, command.purpose);
    std::fputs("  quarvel help COMMAND                             explains all of a command's options, with examples\n"
               "  quarvel --version                                says which version this is\n"
               "\n"
               "Begin with: quarvel normalmap hero.svg --lit hero_lit.png\n"
               "The normal map is written beside the drawing, as hero_n.png; the other picture shows what it does.\n"
               "The same in a window: quarvel-studio hero.svg\n",
               stream);
}

int noSuchCommand(const QString& name)
{
    QStringList names;
    for (const Command& command : kCommands)
        names << QLatin1String(command.name);
    const QString forFile = commandFor(name);
    const QString meant = forFile.isEmpty() ? nearestWord(name, names) : forFile;
    say(QStringLiteral("there is no command \"%1\"; %2")
            .arg(escapedName(name), meant.isEmpty() ? QStringLiteral("there is ") + names.join(QStringLiteral(", "))
                                                    : QStringLiteral("did you mean %1?").arg(meant)));
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
    helps.reserve(std::size(kCommands));
    for (const Command& command : kCommands)
        helps.push_back({QLatin1String(command.name), command.help()});
    return helps;
}

int print(const QString& text, Report& report)
{
    report.remark(text);
    return 0;
}

int printManual(const QString& name, Report& report)
{
    const QString version = QStringLiteral(QUARVEL_VERSION);
    if (name == QLatin1String("quarvel"))
        return print(manualOverview(commandHelps(), version), report);
    for (const CommandHelp& help : commandHelps())
        if (help.name == name)
            return print(manualPage(help, version), report);
    return noSuchCommand(name);
}

int printCompletion(const QString& shell, Report& report)
{
    if (shell == QLatin1String("bash"))
        return print(bashCompletion(commandHelps()), report);
    if (shell == QLatin1String("zsh"))
        return print(zshCompletion(commandHelps()), report);
    say(QStringLiteral("there is completion for bash and zsh, not for \"%1\"").arg(shell));
    return kWrongUsage;
}

int help(const QStringList& words, Report& report)
{
    if (words.isEmpty()) {
        printUsage(report.results());
        return 0;
    }
    // What packages install: quarvel help --man quarvel|COMMAND, and quarvel help --completion bash|zsh.
    if (words.size() == 2 && words.first() == QLatin1String("--man"))
        return printManual(words[1], report);
    if (words.size() == 2 && words.first() == QLatin1String("--completion"))
        return printCompletion(words[1], report);
    const Command* const command = findCommand(words.first());
    if (!command)
        return noSuchCommand(words.first());
    return print(command->help(), report);
}

// Takes --json out of the words, which every command understands. Words after "--" are no options.
ReportStyle takeStyle(QStringList& words)
{
    const qsizetype end = words.indexOf(QStringLiteral("--"));
    const qsizetype json = words.indexOf(QStringLiteral("--json"));
    if (json < 0 || (end >= 0 && end < json))
        return ReportStyle::TEXT;
    words.removeAt(json);
    return ReportStyle::JSON;
}

int runCommand(const Command& command, QStringList words, std::FILE* results)
{
    const ReportStyle style = takeStyle(words);
    Report report(results, QLatin1String(command.name), style);
    if (const auto scene = std::ranges::find_if_not(words, isText); scene != words.end() && !command.takesAnyNames) {
        report.error(QStringLiteral("%1: the name is not UTF-8, and scenes are opened only under names that are; "
                                    "rename it")
                         .arg(escapedName(*scene)));
        return report.finish(kFailed);
    }
    const UT_Result<int> done =
        UT_withinMemory(QStringLiteral("this"), QStringLiteral("close other programs, or give the job more"),
                        [&]() -> UT_Result<int> { return command.run(words, report); });
    if (!done)
        report.error(done.error());
    return report.finish(done ? *done : kFailed);
}

int run(const QStringList& words, std::FILE* results)
{
    if (words.isEmpty()) {
        printUsage(stderr);
        return kWrongUsage;
    }
    const QString& name = words.first();
    const QStringList rest = words.sliced(1);
    if (const Command* const command = findCommand(name))
        return runCommand(*command, rest, results);
    Report report(results, name, ReportStyle::TEXT);
    if (name == QLatin1String("--help") || name == QLatin1String("-h") || name == QLatin1String("help"))
        return report.finish(help(rest, report));
    if (name == QLatin1String("--version"))
        return report.finish(print(QStringLiteral("quarvel %1\n").arg(QStringLiteral(QUARVEL_VERSION)), report));
    return noSuchCommand(name);
}

// The words after the program's name. Qt would lose the bytes of names that are no text.
//
// @param argc, argv without the words that Qt took for itself
QStringList wordsOf([[maybe_unused]] int argc, [[maybe_unused]] char** argv)
{
#ifdef Q_OS_UNIX
    QStringList words;
    for (const char* const word : std::span(argv, static_cast<std::size_t>(argc)).subspan(1))
        words << nameOf(word);
    return words;
#else
    return QCoreApplication::arguments().sliced(1);
#endif
}

int runProgram(int argc, char** argv)
{
    const TerminalModes terminal;
    const StopSignal stopSignal;
    // No window is ever opened; without this a machine without a display could not even measure a text.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(passGraveMessages);
    const QGuiApplication application(argc, argv);
    const JobLimits limits = jobLimits();
    limitPictures(limits);
    const WorkerThreads threads(limits.threads);
    const ResultStream results;
    return run(wordsOf(argc, argv), results.file());
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return endProgram(runProgram(argc, argv));
    } catch (const std::bad_alloc&) {
        std::fputs("quarvel: not enough memory to begin\n", stderr);
        return kFailed;
    }
}
