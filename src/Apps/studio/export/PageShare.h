// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PageShare: writes what is open as one page for browsers, in the background: the page of "quarvel render --html". The
// page plays all frames in a light that follows the pointer. It is made from a copy of the scene, so people can go on
// working.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QObject>

#include <atomic>
#include <memory>

class QThread;
class StudioDocument;

class PageShare : public QObject
{
    Q_OBJECT

public:
    explicit PageShare(StudioDocument& document, QObject* parent = nullptr);
    /// Stops and waits.
    ~PageShare() override;

    /// Begins to write a page, unless one is being written.
    ///
    /// @param file its name ends in .html or .htm; a file that exists is replaced once the page is complete
    /// @param name the page's title, and the beginning of the names of its downloads
    void start(const QString& file, const QString& name);
    /// Stops; no new file is written.
    void stop() { _stop = true; }
    bool isRunning() const { return _thread != nullptr; }

Q_SIGNALS:
    void runningChanged(bool running);
    void progressed(double done);
    /// The page was written, or writing it failed; the text is for people.
    void ended(const QString& report, bool isError);

private:
    struct Plan;

    UT_Result<std::shared_ptr<Plan>> planOf(const QString& file, const QString& name) const;
    void run(Plan& plan);
    void finish(const Plan& plan);

    StudioDocument& _document;
    QThread* _thread = nullptr;
    std::atomic<bool> _stop = false;
};
