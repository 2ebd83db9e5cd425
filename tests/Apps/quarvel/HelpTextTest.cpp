// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Manual pages and completion are made of the help texts, and the help texts tell what the commands take.
#include "Completion.h"
#include "ImportCommand.h"
#include "InspectCommand.h"
#include "ManualPage.h"
#include "NormalMapOptions.h"
#include "RenderOptions.h"
#include "SetCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using testing::HasSubstr;
using testing::Not;

namespace {

CommandHelp walk()
{
    return {QStringLiteral("walk"), QStringLiteral("quarvel walk - goes for a walk\n"
                                                   "\n"
                                                   "  quarvel walk PLACE\n"
                                                   "\n"
                                                   "It goes there\n"
                                                   "and returns.\n"
                                                   "\n"
                                                   "How it goes\n"
                                                   "  -o, --output FILE  the way\n"
                                                   "                     and back\n"
                                                   "      --pace slow    one step a second\n"
                                                   "      --pace quick   two of them\n"
                                                   "      --side left|right\n"
                                                   "                     of the road\n"
                                                   "  -q, --quiet        without 'words' [none: at all]\n"
                                                   "\n"
                                                   "Examples\n"
                                                   "  quarvel walk home -o a.txt \\\n"
                                                   "          --quiet\n"
                                                   "\n"
                                                   "Exit code: 0.\n")};
}

CompletedOption optionNamed(const CommandHelp& command, const QString& name)
{
    const auto options = completedOptions(command);
    const auto found =
        std::ranges::find_if(options, [&](const CompletedOption& option) { return option.names.contains(name); });
    return found == options.end() ? CompletedOption() : *found;
}

// Whether the command knows the option, whatever it says of the missing value.
template<typename Parse>
void expectEachOptionIsKnown(const CommandHelp& command, Parse parse)
{
    const auto options = completedOptions(command);
    EXPECT_GT(options.size(), 5u);
    for (const CompletedOption& option : options)
        for (const QString& name : option.names) {
            // It belongs to all commands, and is taken before a command sees its words.
            if (name == u"--json")
                continue;
            const auto parsed = parse(QStringList{name});
            const std::string said = parsed ? std::string() : parsed.error().text.toStdString();
            EXPECT_THAT(said, Not(HasSubstr("there is no option"))) << qPrintable(name);
        }
}

} // namespace

TEST(HelpText, AnOptionIsKnownByItsNamesAndItsValue)
{
    const CompletedOption output = optionNamed(walk(), "--output");
    EXPECT_EQ(output.names, (QStringList{"-o", "--output"}));
    EXPECT_EQ(output.value, "FILE");
    EXPECT_EQ(output.explanation, "the way");
    EXPECT_TRUE(output.choices.isEmpty());
    EXPECT_EQ(optionNamed(walk(), "-q").value, "");
}

TEST(HelpText, TheWordsThatAnOptionTakesMayStandInOneEntryOrInSeveral)
{
    EXPECT_EQ(optionNamed(walk(), "--side").choices, (QStringList{"left", "right"}));
    EXPECT_EQ(optionNamed(walk(), "--pace").choices, (QStringList{"slow", "quick"}));
}

TEST(HelpText, EveryOptionInTheHelpIsTakenByItsCommand)
{
    expectEachOptionIsKnown({"normalmap", normalMapHelp()}, parseNormalMapOptions);
    expectEachOptionIsKnown({"import", importHelp()}, parseImportOptions);
    expectEachOptionIsKnown({"render", renderHelp()}, parseRenderOptions);
}

TEST(HelpText, FitsIntoTheUsualWindow)
{
    for (const QString& text : {normalMapHelp(), importHelp(), renderHelp(), inspectHelp(), setHelp()}) {
        EXPECT_THAT(text.toStdString(), HasSubstr("Exit code: 0"));
        for (const QString& line : text.split(QLatin1Char('\n')))
            EXPECT_LE(line.size(), 124) << qPrintable(line);
    }
}

TEST(HelpText, TheManualHasTheSectionsOfTheHelp)
{
    EXPECT_EQ(manualPage(walk(), "1.2.3").toStdString(),
              ".TH QUARVEL\\-WALK 1 \"\" \"quarvel 1.2.3\" \"User Commands\"\n"
              ".SH NAME\n"
              "quarvel\\-walk \\- goes for a walk\n"
              ".SH SYNOPSIS\n"
              ".nf\n"
              "quarvel walk PLACE\n"
              ".fi\n"
              ".SH DESCRIPTION\n"
              ".PP\n"
              "It goes there and returns.\n"
              ".SH HOW IT GOES\n"
              ".TP\n"
              ".B \\-o, \\-\\-output FILE\n"
              "the way\n"
              "and back\n"
              ".TP\n"
              ".B \\-\\-pace slow\n"
              "one step a second\n"
              ".TP\n"
              ".B \\-\\-pace quick\n"
              "two of them\n"
              ".TP\n"
              ".B \\-\\-side left|right\n"
              "of the road\n"
              ".TP\n"
              ".B \\-q, \\-\\-quiet\n"
              "without 'words' [none: at all]\n"
              ".SH EXAMPLES\n"
              ".nf\n"
              "quarvel walk home \\-o a.txt \\e\n"
              "        \\-\\-quiet\n"
              ".fi\n"
              ".SH EXIT STATUS\n"
              "0.\n"
              ".SH SEE ALSO\n"
              ".BR quarvel (1)\n");
}

TEST(HelpText, NoTextBecomesAnInstructionForMan)
{
    const CommandHelp command{"dot", "quarvel dot - x\n\n  quarvel dot\n\n.br at the start\n"};
    EXPECT_THAT(manualPage(command, "1").toStdString(), HasSubstr("\n\\&.br at the start\n"));
}

TEST(HelpText, ShellsGetExplanationsThatEndNoQuote)
{
    const std::string zsh = zshCompletion({walk()}).toStdString();
    EXPECT_THAT(zsh, HasSubstr(R"('*--quiet[without '\''words'\'' \[none\: at all\]]')"));
    EXPECT_THAT(zsh, HasSubstr("'*--output=[the way]:FILE:_files'"));
    EXPECT_THAT(zsh, HasSubstr("'*--pace=[one step a second]:slow:(slow quick)'"));
    const std::string bash = bashCompletion({walk()}).toStdString();
    EXPECT_THAT(bash, HasSubstr("'walk --pace') proposed='slow quick' ;;"));
    EXPECT_THAT(bash, HasSubstr("'walk -o' | 'walk --output') proposed='' ;;"));
}
