// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two flags repeat what the pool's own locks ensure already. Thread sanitizers see no locks of libraries that were
// built without them.
#include "QuarvelCelCore/CELVEC_PainterThread.h"

#include <QRunnable>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>

namespace {

class Errand final : public QRunnable
{
public:
    explicit Errand(const std::function<void()>& work) : _work(work)
    {
        setAutoDelete(false);
        _isReady.store(true, std::memory_order_release);
    }

    void run() override
    {
        (void)_isReady.load(std::memory_order_acquire);
        try {
            _work();
        } catch (...) {
            _failure = std::current_exception();
        }
        // Within the lock, because the waiting thread destroys the condition as soon as it can.
        const std::scoped_lock lock(_mutex);
        _isDone = true;
        _done.notify_one();
    }

    void wait()
    {
        {
            std::unique_lock lock(_mutex);
            _done.wait(lock, [this] { return _isDone; });
        }
        if (_failure)
            std::rethrow_exception(_failure);
    }

private:
    const std::function<void()>& _work;
    std::exception_ptr _failure;
    std::atomic<bool> _isReady = false;
    std::mutex _mutex;
    // No semaphore: where the system has no futex, GCC 12's sleeps on although it was released.
    std::condition_variable _done;
    bool _isDone = false;
};

// Lets the pool run one more thread while this one lives. Work that may wait for other threads of the pool could wait
// for ever if all places were taken by such work.
class Uncounted
{
public:
    Uncounted() { QThreadPool::globalInstance()->releaseThread(); }
    ~Uncounted() { QThreadPool::globalInstance()->reserveThread(); }
    Uncounted(const Uncounted&) = delete;
    Uncounted& operator=(const Uncounted&) = delete;
};

} // namespace

void CELVEC_workOnPainterThread(const std::function<void()>& work)
{
    CELVEC_onPainterThread([&work] {
        const Uncounted uncounted;
        work();
    });
}

void CELVEC_onPainterThread(const std::function<void()>& work)
{
    QThreadPool* const pool = QThreadPool::globalInstance();
    if (pool->contains(QThread::currentThread())) {
        work();
        return;
    }
    Errand errand(work);
    pool->start(&errand);
    errand.wait();
}
