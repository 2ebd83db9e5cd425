// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The man macros: .SH begins a section, .TP an entry, .nf lines that are not filled.
#include "ManualPage.h"

#include <QRegularExpression>

namespace {

// A text with everything escaped that man would take for an instruction.
QString plain(QString text)
{
    text.replace(QLatin1Char('\\'), QLatin1String("\\e")).replace(QLatin1Char('-'), QLatin1String("\\-"));
    const bool looksLikeMacro = text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\''));
    return looksLikeMacro ? QStringLiteral("\\&") + text : text;
}

QString header(const QString& title, const QString& version)
{
    return QStringLiteral(".TH %1 1 \"\" \"quarvel %2\" \"User Commands\"\n").arg(plain(title.toUpper()), version);
}

QString section(const QString& title)
{
    return QStringLiteral(".SH %1\n").arg(plain(title.toUpper()));
}

QString paragraph(const QString& text)
{
    return QStringLiteral(".PP\n%1\n").arg(plain(text));
}

QString commandLines(const QStringList& lines)
{
    QString page = QStringLiteral(".nf\n");
    for (const QString& line : lines)
        page += plain(line) + QLatin1Char('\n');
    return page + QStringLiteral(".fi\n");
}

// Lines of an explanation are filled, except those of a small table inside it.
QString entry(const HelpEntry& entry)
{
    static const QRegularExpression columns(QStringLiteral("\\S {2,}\\S"));
    QString page = QStringLiteral(".TP\n.B %1\n").arg(plain(entry.term));
    for (const QString& line : entry.text)
        page += (line.contains(columns) ? QStringLiteral(".br\n") : QString()) + plain(line) + QLatin1Char('\n');
    return page;
}

// The paragraph of exit codes becomes the section "EXIT STATUS", as manuals call it.
constexpr QLatin1String kExitCode("Exit code: ");

QString body(const HelpBlock& block)
{
    if (block.paragraph.startsWith(kExitCode))
        return section(QStringLiteral("Exit status")) + plain(block.paragraph.mid(kExitCode.size())) +
               QLatin1Char('\n');
    if (!block.paragraph.isEmpty())
        return paragraph(block.paragraph);
    if (!block.commandLines.isEmpty())
        return commandLines(block.commandLines);
    QString page;
    for (const HelpEntry& one : block.entries)
        page += entry(one);
    return page;
}

// The section that a block begins, if it does. The first command lines are the synopsis.
QString beginning(const HelpBlock& block, bool& describes)
{
    if (!block.heading.isEmpty())
        return section(block.heading);
    if (!describes && block.commandLines.isEmpty()) {
        describes = true;
        return section(QStringLiteral("Description"));
    }
    const bool listsOptions = !block.entries.empty() && block.entries.front().isOption();
    return listsOptions ? section(QStringLiteral("Options")) : QString();
}

} // namespace

QString manualPage(const CommandHelp& command, const QString& version)
{
    const QString title = QStringLiteral("quarvel-") + command.name;
    QString page = header(title, version) + section(QStringLiteral("Name")) +
                   QStringLiteral("%1 \\- %2\n").arg(plain(title), plain(command.purpose())) +
                   section(QStringLiteral("Synopsis"));
    bool describes = false;
    for (const HelpBlock& block : readHelpText(command.text))
        page += beginning(block, describes) + body(block);
    return page + section(QStringLiteral("See also")) + QStringLiteral(".BR quarvel (1)\n");
}

QString manualOverview(const std::vector<CommandHelp>& commands, const QString& version)
{
    QString page = header(QStringLiteral("quarvel"), version) + section(QStringLiteral("Name")) +
                   QStringLiteral("quarvel \\- volume for flat drawings\n") + section(QStringLiteral("Synopsis")) +
                   commandLines({QStringLiteral("quarvel COMMAND WORDS..."), QStringLiteral("quarvel help [COMMAND]"),
                                 QStringLiteral("quarvel --version")}) +
                   section(QStringLiteral("Description")) +
                   paragraph(QStringLiteral("quarvel builds elevation maps and normal maps of flat drawings, pixel for "
                                            "pixel registered with them, so that animation and sprites can be lit. "
                                            "Its first word names a command, each with a page of its own:"));
    for (const CommandHelp& command : commands)
        page += QStringLiteral(".TP\n.BR quarvel\\-%1 (1)\n%2\n").arg(plain(command.name), plain(command.purpose()));
    page +=
        section(QStringLiteral("Environment")) +
        entry(
            {QStringLiteral("QUARVEL_PLUGIN_PATH"),
             {QStringLiteral("the folder that holds the plug-ins, instead of the one that belongs to the program")}}) +
        section(QStringLiteral("Examples")) + commandLines({QStringLiteral("quarvel normalmap hero.svg")});
    return page + section(QStringLiteral("See also")) + QStringLiteral(".BR quarvel\\-studio (1)\n");
}
