// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Work on threads of the painter's pool: what it throws, and what it may wait for.
#include "QuarvelCelCore/CELVEC_PainterThread.h"

#include <QThread>
#include <QThreadPool>
#include <gtest/gtest.h>

#include <latch>
#include <stdexcept>
#include <thread>
#include <vector>

TEST(PainterThread, WhatTheWorkThrowsIsThrown)
{
    const auto fail = [] { throw std::runtime_error("no colours left"); };
    EXPECT_THROW(CELVEC_onPainterThread(fail), std::runtime_error);
    EXPECT_THROW(CELVEC_workOnPainterThread(fail), std::runtime_error);
}

TEST(PainterThread, WorkWithinWorkStaysOnItsThread)
{
    CELVEC_workOnPainterThread([] {
        const QThread* const outer = QThread::currentThread();
        EXPECT_TRUE(QThreadPool::globalInstance()->contains(outer));
        CELVEC_onPainterThread([&] { EXPECT_EQ(QThread::currentThread(), outer); });
        CELVEC_workOnPainterThread([&] { EXPECT_EQ(QThread::currentThread(), outer); });
    });
}

// More long work than the pool has threads, all of it under way, and each waiting for a thread that needs the pool too.
TEST(PainterThread, LongWorkMayWaitForThreadsOfThePool)
{
    const int count = QThreadPool::globalInstance()->maxThreadCount() + 2;
    std::latch allAreUnderWay(count);
    std::vector<int> done(static_cast<std::size_t>(count), 0);
    std::vector<std::jthread> callers;
    for (int& one : done)
        callers.emplace_back([&] {
            CELVEC_workOnPainterThread([&] {
                allAreUnderWay.arrive_and_wait();
                std::jthread([&] { CELVEC_onPainterThread([&] { one = 1; }); }).join();
            });
        });
    callers.clear();
    EXPECT_EQ(done, std::vector<int>(static_cast<std::size_t>(count), 1));
}
