// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the history of a document promises.
#include "QuarvelCommand/CO_CommandStack.h"

#include "Host/QuarvelCommand/Recorder.h"
#include "QuarvelCommand/CO_OrCommand.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace {

using Fails = Append::Fails;

class Counter : public XUListener
{
public:
    void told(XUTeller&) override { ++count; }
    int count = 0;
};

// Moves a slider. Moves that follow each other are one change.
class Slide : public CO_Command
{
public:
    Slide(int& place, int way) : _place(place), _way(way) {}

    QString name() const override { return QStringLiteral("Slide"); }
    void execute() override { _place += _way; }
    void undo() override { _place -= _way; }
    bool hasEffect() const override { return _way != 0; }
    bool canMergeWith(const CO_Command& later) const override { return dynamic_cast<const Slide*>(&later); }
    void mergeWith(const CO_Command& later) override { _way += static_cast<const Slide&>(later)._way; }

private:
    int& _place;
    int _way;
};

class CommandStack : public testing::Test
{
protected:
    bool run(char letter) { return stack.execute(Append::make(text, letter)); }
    bool slide(int way) { return stack.execute(std::make_unique<Slide>(place, way)); }

    QString text;
    int place = 0;
    CO_CommandStack stack;
};

} // namespace

TEST_F(CommandStack, HasNothingToUndoOrRedoAtFirst)
{
    EXPECT_FALSE(stack.canUndo());
    EXPECT_FALSE(stack.canRedo());
    EXPECT_FALSE(stack.undo());
    EXPECT_FALSE(stack.redo());
    EXPECT_EQ(stack.undoName(), QString());
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CommandStack, UndoesAndRedoesStepByStep)
{
    run('A');
    run('B');
    EXPECT_EQ(text, QStringLiteral("AB"));
    EXPECT_TRUE(stack.undo());
    EXPECT_EQ(text, QStringLiteral("A"));
    EXPECT_TRUE(stack.undo());
    EXPECT_EQ(text, QString());
    EXPECT_TRUE(stack.redo());
    EXPECT_TRUE(stack.redo());
    EXPECT_EQ(text, QStringLiteral("AB"));
}

TEST_F(CommandStack, NamesWhatUndoAndRedoWouldDo)
{
    run('A');
    run('B');
    stack.undo();
    EXPECT_EQ(stack.undoName(), QStringLiteral("Append A"));
    EXPECT_EQ(stack.redoName(), QStringLiteral("Append B"));
    EXPECT_EQ(stack.undoNames(), QStringList(QStringLiteral("Append A")));
}

TEST_F(CommandStack, ForgetsWhatWasUndoneWhenSomethingNewIsDone)
{
    run('A');
    stack.undo();
    run('B');
    EXPECT_FALSE(stack.canRedo());
    EXPECT_EQ(text, QStringLiteral("B"));
}

TEST_F(CommandStack, ForgetsARunOfChangesThatWasGivenUp)
{
    slide(7);
    stack.setClean();
    slide(1);
    slide(2);
    EXPECT_TRUE(stack.dropRun());
    EXPECT_EQ(place, 7);
    EXPECT_FALSE(stack.canRedo());
    EXPECT_TRUE(stack.isClean());
    // What was done before the run stays.
    EXPECT_FALSE(stack.dropRun());
    EXPECT_EQ(place, 7);
}

TEST_F(CommandStack, HasNoRunToForgetAfterItsEnd)
{
    slide(7);
    stack.endMerging();
    EXPECT_FALSE(stack.dropRun());
    slide(2);
    stack.undo();
    EXPECT_FALSE(stack.dropRun());
    EXPECT_EQ(place, 7);
}

TEST_F(CommandStack, KeepsNothingOfARunThatEndsWhereItBegan)
{
    slide(7);
    stack.setClean();
    slide(3);
    slide(-2);
    EXPECT_TRUE(stack.canUndo());
    EXPECT_TRUE(slide(-1));
    EXPECT_EQ(place, 7);
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(stack.undoNames().size(), 1);
    stack.undo();
    EXPECT_EQ(place, 0);
}

TEST_F(CommandStack, DoesNotTakeARunBeyondItsBeginningIntoTheRunBefore)
{
    slide(7);
    stack.endMerging();
    slide(3);
    slide(-3);
    slide(2);
    EXPECT_EQ(stack.undoNames().size(), 2);
    EXPECT_TRUE(stack.dropRun());
    EXPECT_EQ(place, 7);
}

TEST_F(CommandStack, DropsCommandsWithoutEffect)
{
    run('A');
    stack.undo();
    EXPECT_FALSE(stack.execute(nullptr));
    EXPECT_FALSE(stack.execute(std::make_unique<CO_OrCommand>()));
    EXPECT_TRUE(stack.canRedo());
    EXPECT_FALSE(stack.canUndo());
}

TEST_F(CommandStack, MergesSmallStepsIntoOne)
{
    run('a');
    run('b');
    run('c');
    EXPECT_EQ(text, QStringLiteral("abc"));
    EXPECT_EQ(stack.undoNames().size(), 1);
    stack.undo();
    EXPECT_EQ(text, QString());
    stack.redo();
    EXPECT_EQ(text, QStringLiteral("abc"));
}

TEST_F(CommandStack, DoesNotMergeAcrossEndMerging)
{
    run('a');
    stack.endMerging();
    run('b');
    stack.undo();
    EXPECT_EQ(text, QStringLiteral("a"));
}

TEST_F(CommandStack, DoesNotMergeAfterUndoOrRedo)
{
    run('a');
    run('B');
    stack.undo();
    run('c');
    EXPECT_EQ(stack.undoNames().size(), 2);
    stack.undo();
    stack.redo();
    run('d');
    EXPECT_EQ(stack.undoNames().size(), 3);
}

TEST_F(CommandStack, DoesNotMergeIntoTheCleanState)
{
    run('a');
    stack.setClean();
    run('b');
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(text, QStringLiteral("a"));
}

TEST_F(CommandStack, IsCleanAgainWhereItWasSaved)
{
    run('A');
    EXPECT_FALSE(stack.isClean());
    stack.setClean();
    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CommandStack, IsNeverCleanAgainWhenTheSavedStateIsLost)
{
    run('A');
    run('B');
    stack.setClean();
    stack.undo();
    run('C');
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_FALSE(stack.isClean());
}

TEST_F(CommandStack, ForgetsTheOldestBeyondItsLimit)
{
    stack.setLimit(2);
    run('A');
    run('B');
    run('C');
    EXPECT_EQ(stack.undoNames(), QStringList({QStringLiteral("Append B"), QStringLiteral("Append C")}));
    stack.undo();
    stack.undo();
    EXPECT_FALSE(stack.undo());
    EXPECT_EQ(text, QStringLiteral("A"));
    EXPECT_FALSE(stack.isClean());
}

TEST_F(CommandStack, KeepsTheCleanStateWithinItsLimit)
{
    stack.setLimit(2);
    run('A');
    stack.setClean();
    run('B');
    run('C');
    stack.undo();
    stack.undo();
    EXPECT_TRUE(stack.isClean());
}

TEST_F(CommandStack, IsAsItWasWhenACommandFails)
{
    run('A');
    run('B');
    stack.undo();
    EXPECT_THROW(stack.execute(Append::make(text, 'C', Fails::EXECUTE)), std::runtime_error);
    EXPECT_EQ(text, QStringLiteral("A"));
    EXPECT_EQ(stack.undoName(), QStringLiteral("Append A"));
    EXPECT_EQ(stack.redoName(), QStringLiteral("Append B"));
}

TEST_F(CommandStack, StaysWhereItIsWhenAnUndoFails)
{
    stack.execute(Append::make(text, 'A', Fails::UNDO));
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_TRUE(stack.canUndo());
    EXPECT_EQ(text, QStringLiteral("A"));
}

TEST_F(CommandStack, TellsOfEveryChangeOfTheHistory)
{
    Counter counter;
    stack.addListener(counter);
    run('a');
    run('b');
    EXPECT_EQ(counter.count, 2);
    stack.undo();
    stack.redo();
    stack.setClean();
    stack.clear();
    EXPECT_EQ(counter.count, 6);
    stack.undo();
    stack.execute(nullptr);
    EXPECT_EQ(counter.count, 6);
}

TEST_F(CommandStack, IsCleanAndEmptyWhenCleared)
{
    run('A');
    stack.clear();
    EXPECT_FALSE(stack.canUndo());
    EXPECT_TRUE(stack.isClean());
    EXPECT_EQ(text, QStringLiteral("A"));
}

RC_GTEST_PROP(CommandStackProperty, BringsBackEveryStateItWentThrough, (const std::vector<bool>& small))
{
    QString text;
    CO_CommandStack stack;
    for (std::size_t i = 0; i < small.size(); ++i)
        stack.execute(Append::make(text, static_cast<char>((small[i] ? 'a' : 'A') + static_cast<char>(i % 26))));
    std::vector<QString> states{text};
    while (stack.undo())
        states.push_back(text);
    RC_ASSERT(text.isEmpty());
    for (std::size_t i = states.size() - 1; i > 0; --i) {
        RC_ASSERT(text == states[i]);
        RC_ASSERT(stack.redo());
    }
    RC_ASSERT(text == states[0]);
    RC_ASSERT(!stack.redo());
}
