// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What a command made of others promises.
#include "QuarvelCommand/CO_OrCommand.h"

#include "Host/QuarvelCommand/Recorder.h"

#include <gtest/gtest.h>

using Fails = Append::Fails;

TEST(CO_OrCommand, ExecutesInOrderAndUndoesInReverse)
{
    QString text;
    CO_OrCommand command;
    command.append(Append::make(text, 'A'));
    command.append(Append::make(text, 'B'));
    command.execute();
    EXPECT_EQ(text, QStringLiteral("AB"));
    command.undo();
    EXPECT_EQ(text, QString());
    command.redo();
    EXPECT_EQ(text, QStringLiteral("AB"));
}

TEST(CO_OrCommand, HasNoEffectWhenEmpty)
{
    CO_OrCommand command;
    EXPECT_TRUE(command.isEmpty());
    EXPECT_FALSE(command.hasEffect());
    command.execute();
    command.undo();
}

TEST(CO_OrCommand, HasNoEffectWhenNoneOfItsCommandsHas)
{
    QString text;
    CO_OrCommand command;
    command.append(std::make_unique<CO_OrCommand>());
    EXPECT_FALSE(command.hasEffect());
    command.append(Append::make(text, 'A'));
    EXPECT_TRUE(command.hasEffect());
}

TEST(CO_OrCommand, TakesTheCommandsOfCallersAndLeavesNullOut)
{
    QString text;
    CO_OrCommand command;
    CO_Command* nothing = nullptr;
    command.append(nothing);
    command.append(new Append(text, 'A'));
    EXPECT_EQ(command.size(), 1U);
}

TEST(CO_OrCommand, HasItsOwnNameOrThatOfItsFirstCommand)
{
    QString text;
    CO_OrCommand unnamed;
    EXPECT_EQ(unnamed.name(), QString());
    unnamed.append(Append::make(text, 'A'));
    EXPECT_EQ(unnamed.name(), QStringLiteral("Append A"));
    CO_OrCommand named(QStringLiteral("Edit"));
    named.append(Append::make(text, 'A'));
    EXPECT_EQ(named.name(), QStringLiteral("Edit"));
}

TEST(CO_OrCommand, TakesBackWhatWasDoneWhenACommandFails)
{
    QString text = QStringLiteral(".");
    CO_OrCommand command;
    command.append(Append::make(text, 'A'));
    command.append(Append::make(text, 'B'));
    command.append(Append::make(text, 'C', Fails::EXECUTE));
    command.append(Append::make(text, 'D'));
    EXPECT_THROW(command.execute(), std::runtime_error);
    EXPECT_EQ(text, QStringLiteral("."));
}

TEST(CO_OrCommand, DoesAgainWhatWasUndoneWhenAnUndoFails)
{
    QString text;
    CO_OrCommand command;
    command.append(Append::make(text, 'A'));
    command.append(Append::make(text, 'B', Fails::UNDO));
    command.append(Append::make(text, 'C'));
    command.execute();
    EXPECT_THROW(command.undo(), std::runtime_error);
    EXPECT_EQ(text, QStringLiteral("ABC"));
}

TEST(CO_OrCommand, TakesBackWhatWasRedoneWhenARedoFails)
{
    QString text;
    CO_OrCommand command;
    command.append(Append::make(text, 'A'));
    command.append(Append::make(text, 'B', Fails::REDO));
    command.execute();
    command.undo();
    EXPECT_THROW(command.redo(), std::runtime_error);
    EXPECT_EQ(text, QString());
}

TEST(CO_OrCommand, MergesWhenAllItsCommandsDo)
{
    QString text;
    CO_OrCommand first(QStringLiteral("Drag"));
    first.append(Append::make(text, 'a'));
    CO_OrCommand second(QStringLiteral("Drag"));
    second.append(Append::make(text, 'b'));
    first.execute();
    second.execute();
    ASSERT_TRUE(first.canMergeWith(second));
    first.mergeWith(second);
    first.undo();
    EXPECT_EQ(text, QString());
    first.redo();
    EXPECT_EQ(text, QStringLiteral("ab"));
}

TEST(CO_OrCommand, DoesNotMergeWithAnotherNameLengthOrKind)
{
    QString text;
    CO_OrCommand drag(QStringLiteral("Drag"));
    drag.append(Append::make(text, 'a'));

    CO_OrCommand otherName(QStringLiteral("Type"));
    otherName.append(Append::make(text, 'b'));
    EXPECT_FALSE(drag.canMergeWith(otherName));

    CO_OrCommand longer(QStringLiteral("Drag"));
    longer.append(Append::make(text, 'b'));
    longer.append(Append::make(text, 'c'));
    EXPECT_FALSE(drag.canMergeWith(longer));

    CO_OrCommand unwilling(QStringLiteral("Drag"));
    unwilling.append(Append::make(text, 'B'));
    EXPECT_FALSE(drag.canMergeWith(unwilling));

    EXPECT_FALSE(drag.canMergeWith(Append(text, 'b')));
}
