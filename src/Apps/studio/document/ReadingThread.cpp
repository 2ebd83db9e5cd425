// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Threads that were given up delete themselves at their end.
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
    connect(_thread, &QThread::finished, this, [this, done] {
        _thread->wait();
        std::exchange(_thread, nullptr)->deleteLater();
        done();
    });
    _thread->start();
}

void ReadingThread::giveUp()
{
    if (!_thread)
        return;
    *_givenUp = true;
    _thread->disconnect(this);
    connect(_thread, &QThread::finished, _thread, &QObject::deleteLater);
    _retired.removeIf([](const QPointer<QThread>& thread) { return thread.isNull(); });
    _retired << std::exchange(_thread, nullptr);
}
