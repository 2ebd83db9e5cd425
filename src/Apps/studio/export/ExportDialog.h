// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportDialog: writes frames to picture files. People choose the frames, the pictures of each frame, the program that
// they are for, their form and their folder. The first values are those of the last export with the drawing's own size,
// folder and name, so that pressing Enter is enough.
#pragma once

#include "studio/export/ExportFields.h"
#include "studio/export/ExportJob.h"
#include "studio/export/ExportMemory.h"

#include <QDialog>

#include <memory>
#include <optional>

class QDialogButtonBox;
class QLabel;
class QProgressBar;
class QPushButton;

class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    ExportDialog(const MO_Scene& scene, const ExportOrigin& origin, QWidget* parent = nullptr);

    /// The values of the fields.
    ExportChoices choices() const;
    /// Sets the fields.
    void setChoices(const ExportChoices& choices);
    /// The choices of the last export; std::nullopt if nothing was exported.
    const std::optional<ExportChoices>& exported() const { return _exported; }
    /// The text below the fields.
    QString message() const;
    bool isRunning() const { return _job != nullptr; }

    /// Starts the export, as the button "Export" does.
    void begin();

    void done(int result) override;

private:
    void addButtons();
    void connectFields();
    void takeMemory();
    ExportMemory memory() const;
    void nodeChanged();
    void formatChanged();
    void picturesChanged();
    void takeTarget();
    void forgetTarget();
    void takeForm(const NM_MapForm& form, bool exr, bool half);
    const Target* target() const;
    QList<ExportPicture> pictures() const;
    ExportFormat format() const;
    void update();
    void chooseFolder();
    void setGloss();
    /// Asks whether to replace existing files. @return true if there are none or the person agrees
    bool mayReplace();
    void setRunning(bool running);
    void ended();

    const MO_Scene& _scene;
    ExportOrigin _origin;
    std::unique_ptr<ExportJob> _job;
    std::optional<ExportChoices> _exported;
    std::vector<DrawnColour> _colours;
    GlossSettings _gloss;                      // of these colours
    ExportPicture _named = ExportPicture::MAP; // the picture that the file's name is for
    bool _takesTarget = false;                 // the fields are being set by the target

    ExportFields _fields;
    QLabel* _message = nullptr;
    QProgressBar* _progress = nullptr;
    QDialogButtonBox* _buttons = nullptr;
    QPushButton* _start = nullptr;
};
