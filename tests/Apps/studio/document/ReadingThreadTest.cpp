// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A reading that was given up is never told to be done, even if it had ended before: the event loop learns of an end
// only when it comes round.
#include "studio/document/ReadingThread.h"

#include <QSemaphore>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace {

class ReadingThreadTest : public testing::Test
{
protected:
    /// Starts a reading, and waits for its end without letting the event loop learn of it.
    void startAndEnd()
    {
        QSemaphore begun;
        QSemaphore mayEnd;
        QThread* thread = nullptr;
        reading.start(
            [&](const ReadingThread::GivenUp&) {
                thread = QThread::currentThread();
                begun.release();
                mayEnd.acquire();
            },
            [this] { ++firstDone; });
        begun.acquire();
        mayEnd.release();
        EXPECT_TRUE(thread->wait());
    }
    void startSecond()
    {
        reading.start([](const ReadingThread::GivenUp&) {}, [this] { ++secondDone; });
    }

    ReadingThread reading;
    int firstDone = 0;
    int secondDone = 0;
};

TEST_F(ReadingThreadTest, AReadingIsDoneOnce)
{
    startAndEnd();
    EXPECT_TRUE(reading.isReading());
    EXPECT_TRUE(QTest::qWaitFor([this] { return firstDone > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(firstDone, 1);
    EXPECT_FALSE(reading.isReading());
}

TEST_F(ReadingThreadTest, AReadingThatIsGivenUpAfterItsEndIsNotDone)
{
    startAndEnd();
    reading.giveUp();
    QCoreApplication::processEvents();
    EXPECT_EQ(firstDone, 0);
    EXPECT_FALSE(reading.isReading());
}

TEST_F(ReadingThreadTest, AnotherReadingIsToldOfItsOwnEndAlone)
{
    startAndEnd();
    startSecond();
    EXPECT_TRUE(QTest::qWaitFor([this] { return secondDone > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(firstDone, 0);
    EXPECT_EQ(secondDone, 1);
}

TEST_F(ReadingThreadTest, WhatIsReadWhenTheReaderGoesIsWaitedFor)
{
    std::atomic<bool> hasEnded = false;
    {
        ReadingThread leaving;
        QSemaphore begun;
        leaving.start(
            [&](const ReadingThread::GivenUp& givenUp) {
                begun.release();
                while (!*givenUp)
                    QThread::yieldCurrentThread();
                hasEnded = true;
            },
            [] { ADD_FAILURE() << "it was given up"; });
        begun.acquire();
    }
    EXPECT_TRUE(hasEnded);
}

} // namespace
