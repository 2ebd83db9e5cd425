// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LastExport: the last export of the open scene, and its repetition without a dialog: the scene as it is now is written
// to the same files. A repetition is meant to replace them, so it does not ask.
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

    /// The choices; std::nullopt if this scene has not been exported.
    const std::optional<ExportChoices>& choices() const { return _choices; }
    void setChoices(const ExportChoices& choices) { _choices = choices; }
    /// The drawings are about to be read again: notes whether the export has their own size.
    void noteSize();
    /// They were read: an export that had their own size has it again.
    void followSize();

    /// Exports again, unless a repetition is running.
    void repeat();
    void stop();
    bool isRunning() const { return _job != nullptr; }

Q_SIGNALS:
    void runningChanged(bool running);
    void progressed(double done);
    /// A repetition ended or could not start; the text is for people.
    void ended(const QString& report, bool isError);

private:
    StudioDocument& _document;
    std::optional<ExportChoices> _choices;
    bool _hasOwnSize = false; // as it was noted
    std::unique_ptr<ExportJob> _job;
};
