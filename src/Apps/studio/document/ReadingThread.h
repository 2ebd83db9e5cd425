// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ReadingThread: files are read beside the window, which waits for none of it.
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QThread>

#include <atomic>
#include <functional>
#include <memory>

/// Reads one thing at a time on a thread of its own. A reading that is given up ends when it asks next; only the
/// destructor waits for that. Lives on the window's thread.
class ReadingThread : public QObject
{
public:
    /// Becomes true when the reading is given up.
    using GivenUp = std::shared_ptr<const std::atomic<bool>>;

    explicit ReadingThread(QObject* parent = nullptr);
    ~ReadingThread() override;

    /// Starts a reading and gives up the one before.
    ///
    /// @param read runs on the thread, asks the flag several times a second, and must not throw
    /// @param done runs on the window's thread afterwards, unless the reading was given up
    void start(const std::function<void(const GivenUp& givenUp)>& read, const std::function<void()>& done);
    void giveUp();
    bool isReading() const { return _thread != nullptr; }

private:
    QThread* _thread = nullptr;
    std::shared_ptr<std::atomic<bool>> _givenUp; // of the thread
    QList<QPointer<QThread>> _retired;           // given up, and perhaps still at work
};
