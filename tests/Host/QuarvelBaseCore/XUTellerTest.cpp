// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What tellers and listeners promise each other.
#include "QuarvelBaseCore/XUTeller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace {

using testing::ElementsAre;

class Listener : public XUListener
{
public:
    explicit Listener(std::function<void(XUTeller&)> reaction) : _reaction(std::move(reaction)) {}
    void told(XUTeller& teller) override { _reaction(teller); }

private:
    std::function<void(XUTeller&)> _reaction;
};

// Records who was notified, in order.
struct Notes
{
    std::function<void(XUTeller&)> note(const std::string& name)
    {
        return [this, name](XUTeller&) { names.push_back(name); };
    }
    std::vector<std::string> names;
};

} // namespace

TEST(XUTeller, TellsInTheOrderOfAdding)
{
    Notes notes;
    Listener a(notes.note("a"));
    Listener b(notes.note("b"));
    XUTeller teller;
    teller.addListener(b);
    teller.addListener(a);
    teller.tell();
    EXPECT_THAT(notes.names, ElementsAre("b", "a"));
}

TEST(XUTeller, SaysWhoTells)
{
    XUTeller* heard = nullptr;
    Listener listener([&](XUTeller& who) { heard = &who; });
    XUTeller teller;
    teller.addListener(listener);
    teller.tell();
    EXPECT_EQ(heard, &teller);
}

TEST(XUTeller, TellsAListenerOnceHoweverOftenItWasAdded)
{
    Notes notes;
    Listener a(notes.note("a"));
    XUTeller teller;
    teller.addListener(a);
    teller.addListener(a);
    teller.tell();
    EXPECT_THAT(notes.names, ElementsAre("a"));
}

TEST(XUTeller, DoesNotTellWhoWasRemoved)
{
    Notes notes;
    Listener a(notes.note("a"));
    XUTeller teller;
    teller.addListener(a);
    teller.removeListener(a);
    teller.tell();
    EXPECT_TRUE(notes.names.empty());
}

TEST(XUTeller, DoesNotTellWhoIsRemovedInTheMiddle)
{
    Notes notes;
    XUTeller teller;
    Listener later(notes.note("later"));
    Listener remover([&](XUTeller&) { teller.removeListener(later); });
    teller.addListener(remover);
    teller.addListener(later);
    teller.tell();
    EXPECT_TRUE(notes.names.empty());
}

TEST(XUTeller, TellsWhoIsAddedInTheMiddleFromTheNextTimeOn)
{
    Notes notes;
    XUTeller teller;
    Listener late(notes.note("late"));
    Listener adder([&](XUTeller&) { teller.addListener(late); });
    teller.addListener(adder);
    teller.tell();
    EXPECT_TRUE(notes.names.empty());
    teller.tell();
    EXPECT_THAT(notes.names, ElementsAre("late"));
}

TEST(XUTeller, ForgetsListenersThatAreGone)
{
    Notes notes;
    XUTeller teller;
    auto gone = std::make_unique<Listener>(notes.note("gone"));
    teller.addListener(*gone);
    gone.reset();
    teller.tell();
    EXPECT_TRUE(notes.names.empty());
}

TEST(XUTeller, MayGoBeforeItsListeners)
{
    Notes notes;
    Listener listener(notes.note("x"));
    auto first = std::make_unique<XUTeller>();
    XUTeller second;
    first->addListener(listener);
    second.addListener(listener);
    first.reset();
    second.tell();
    EXPECT_THAT(notes.names, ElementsAre("x"));
}
