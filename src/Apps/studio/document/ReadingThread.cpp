// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A thread is deleted when the event loop learns of its end, whether it was given up or not.
#include "studio/document/ReadingThread.h"

#include <utility>

ReadingThread::ReadingThread(QObject* parent) : QObject(parent) {}

ReadingThread::~ReadingThread()
{
    giveUp();
    for (const QPointer<QThread>& thread : std::as_const(_retired))
        if (thread) {
            thread->wait();
            delete thread;
        }
}

void ReadingThread::start(const std::function<void(const GivenUp& givenUp)>& read, const std::function<void()>& done)
{
    giveUp();
    _givenUp = std::make_shared<std::atomic<bool>>(false);
    _thread = QThread::create([read, givenUp = GivenUp(_givenUp)] { read(givenUp); });
    // The news of an end may be on its way already when the reading is given up, and another one started.
    connect(_thread, &QThread::finished, this, [this, done, thread = _thread, givenUp = _givenUp] {
        thread->wait();
        thread->deleteLater();
        if (*givenUp)
            return;
        _thread = nullptr;
        done();
    });
    _thread->start();
}

void ReadingThread::giveUp()
{
    if (!_thread)
        return;
    *_givenUp = true;
    _retired.removeIf([](const QPointer<QThread>& thread) { return thread.isNull(); });
    _retired << std::exchange(_thread, nullptr);
}
