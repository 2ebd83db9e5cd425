// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LastExport: the export that was made last of the open scene, and its repetition without a dialog: with the scene as
// it is now, into the same files. Replacing them is what a repetition is for, so nobody is asked.
#pragma once

#include "studio/export/ExportJob.h"

#include <memory>
#include <optional>

class StudioDocument;

class LastExport : public QObject
{
    Q_OBJECT

public:
    /// Forgets the export when another scene is opened.
    explicit LastExport(StudioDocument& document, QObject* parent = nullptr);

    /// What was chosen; nothing when this scene was not exported yet.
    const std::optional<ExportChoices>& choices() const { return _choices; }
    void setChoices(const ExportChoices& choices) { _choices = choices; }

    /// Exports once more; a repetition that still runs is stopped first and waited for.
    void repeat();
    void stop();
    bool isRunning() const { return _job != nullptr; }

Q_SIGNALS:
    void runningChanged(bool running);
    void progressed(double done);
    /// A repetition ended, or could not begin; with a text for people.
    void ended(const QString& report, bool isError);

private:
    StudioDocument& _document;
    std::optional<ExportChoices> _choices;
    std::unique_ptr<ExportJob> _job;
};
