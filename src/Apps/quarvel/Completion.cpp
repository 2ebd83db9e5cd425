// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads the options out of a help text, and writes completion scripts for two shells.
#include "Completion.h"

#include "jobs/targets/Targets.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

QStringList choicesIn(const QString& value)
{
    static const QRegularExpression words(QStringLiteral("^[a-z0-9]+(\\|[a-z0-9]+)*$"));
    return words.match(value).hasMatch() ? value.split(QLatin1Char('|')) : QStringList();
}

QStringList targetNames()
{
    QStringList names;
    for (const Target& target : targets())
        names << QString::fromLatin1(target.name);
    return names;
}

// One entry may name several options that another command explains.
QList<QStringList> optionsOf(const HelpEntry& entry)
{
    const QStringList names = entry.optionNames();
    const bool areSeparate = std::ranges::all_of(names, [](const QString& name) { return name.startsWith(u"--"); });
    if (!areSeparate)
        return {names};
    QList<QStringList> options;
    for (const QString& name : names)
        options << QStringList{name};
    return options;
}

// An option that is explained value by value has several entries.
void add(std::vector<CompletedOption>& options, const QStringList& names, const HelpEntry& entry)
{
    const QString value = entry.optionValue();
    const auto known = std::ranges::find_if(
        options, [&](const CompletedOption& option) { return option.names.last() == names.last(); });
    if (known != options.end()) {
        known->choices += choicesIn(value);
        return;
    }
    const bool isTarget = names.last() == QLatin1String("--for");
    options.push_back({names, entry.text.value(0), value, isTarget ? targetNames() : choicesIn(value)});
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("'\\''")) + QLatin1Char('\'');
}

QString bashCommand(const CommandHelp& command)
{
    QString cases;
    QStringList names;
    for (const CompletedOption& option : completedOptions(command)) {
        names += option.names;
        QStringList patterns;
        for (const QString& name : option.names)
            patterns << quoted(command.name + QLatin1Char(' ') + name);
        if (!option.value.isEmpty())
            cases += QStringLiteral("    %1) proposed=%2 ;;\n")
                         .arg(patterns.join(QStringLiteral(" | ")), quoted(option.choices.join(QLatin1Char(' '))));
    }
    return cases + QStringLiteral("    %1' '*) [[ $word == -* ]] && proposed=%2 ;;\n")
                       .arg(quoted(command.name), quoted(names.join(QLatin1Char(' '))));
}

// Colons and brackets end the parts of what _arguments takes.
QString zshText(QString text)
{
    static const QRegularExpression special(QStringLiteral("([\\\\\\[\\]:])"));
    return text.replace(special, QStringLiteral("\\\\1"));
}

QString zshOption(const CompletedOption& option, const QString& name)
{
    QString action;
    if (!option.value.isEmpty()) {
        const bool isFile = option.value == QLatin1String("FILE") || option.value.startsWith(QLatin1String("NAME."));
        const QString choices = QStringLiteral("(%1)").arg(option.choices.join(QLatin1Char(' ')));
        const QString proposed = option.choices.isEmpty() ? QString() : choices;
        action = QStringLiteral(":%1:%2").arg(zshText(option.value), isFile ? QStringLiteral("_files") : proposed);
    }
    const bool isLong = name.startsWith(QLatin1String("--"));
    const QLatin1String joins(option.value.isEmpty() ? "" : isLong ? "=" : "+");
    return quoted(QStringLiteral("*%1%2[%3]%4").arg(name, joins, zshText(option.explanation), action));
}

QString zshCommand(const CommandHelp& command)
{
    QString text = QStringLiteral("    %1) _arguments -S \\\n").arg(command.name);
    for (const CompletedOption& option : completedOptions(command))
        for (const QString& name : option.names)
            text += QStringLiteral("            %1 \\\n").arg(zshOption(option, name));
    return text + QStringLiteral("            '*:file:_files' ;;\n");
}

} // namespace

std::vector<CompletedOption> completedOptions(const CommandHelp& command)
{
    std::vector<CompletedOption> options;
    for (const HelpBlock& block : readHelpText(command.text))
        for (const HelpEntry& entry : block.entries)
            if (entry.isOption())
                for (const QStringList& names : optionsOf(entry))
                    add(options, names, entry);
    return options;
}

QString bashCompletion(const std::vector<CommandHelp>& commands)
{
    QStringList names;
    QString cases;
    for (const CommandHelp& command : commands) {
        names << command.name;
        cases += bashCommand(command);
    }
    return QStringLiteral("# Completion of quarvel's command lines in bash; quarvel help --completion bash prints it.\n"
                          "_quarvel() {\n"
                          "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} proposed=\n"
                          "    if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
                          "        COMPREPLY=($(compgen -W '%1 help --version' -- \"$word\"))\n"
                          "        return\n"
                          "    fi\n"
                          "    case \"${COMP_WORDS[1]} $before\" in\n"
                          "    'help help') proposed='%1' ;;\n"
                          "%2"
                          "    esac\n"
                          "    COMPREPLY=($(compgen -W \"$proposed\" -- \"$word\"))\n"
                          "}\n"
                          "# Where nothing is proposed, the names of files are.\n"
                          "complete -o bashdefault -o default -F _quarvel quarvel\n")
        .arg(names.join(QLatin1Char(' ')), cases);
}

QString zshCompletion(const std::vector<CommandHelp>& commands)
{
    QString described;
    QString cases;
    QStringList names;
    for (const CommandHelp& command : commands) {
        names << command.name;
        described += QStringLiteral("        %1\n").arg(quoted(command.name + QLatin1Char(':') + command.purpose()));
        cases += zshCommand(command);
    }
    return QStringLiteral("#compdef quarvel\n"
                          "# Completion of quarvel's command lines in zsh; quarvel help --completion zsh prints it.\n"
                          "_quarvel() {\n"
                          "    local -a commands=(\n%1"
                          "        'help:explains a command'\n"
                          "    )\n"
                          "    if (( CURRENT == 2 )); then\n"
                          "        _describe command commands\n"
                          "        return\n"
                          "    fi\n"
                          "    shift words\n"
                          "    (( CURRENT-- ))\n"
                          "    case $words[1] in\n%2"
                          "    help) compadd %3 ;;\n"
                          "    esac\n"
                          "}\n"
                          "_quarvel \"$@\"\n")
        .arg(described, cases, names.join(QLatin1Char(' ')));
}
