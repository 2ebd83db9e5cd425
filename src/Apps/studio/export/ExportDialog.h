// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportDialog: frames into picture files: which, which pictures of them, for which program, in which form and where.
// It proposes what was chosen last, with the drawing's own size, folder and name, so that Enter exports.
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

    /// What the dialog says now.
    ExportChoices choices() const;
    /// Sets the fields to what was chosen before.
    void setChoices(const ExportChoices& choices);
    /// What the last export wrote; nothing when there was none.
    const std::optional<ExportChoices>& exported() const { return _exported; }
    /// What the dialog tells under its fields.
    QString message() const;
    bool isRunning() const { return _job != nullptr; }

    /// Does what the button "Export" does.
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
    QString mapSuffix() const;
    QList<ExportPicture> pictures() const;
    ExportFormat format() const;
    void update();
    void chooseFolder();
    /// Whether nothing is replaced, or the person agrees to it.
    bool mayReplace();
    void setRunning(bool running);
    void ended();

    const MO_Scene& _scene;
    ExportOrigin _origin;
    std::unique_ptr<ExportJob> _job;
    std::optional<ExportChoices> _exported;
    ExportPicture _named = ExportPicture::MAP; // the picture that the file's name is for
    bool _takesTarget = false;                 // the fields are being set by the target

    ExportFields _fields;
    QLabel* _message = nullptr;
    QProgressBar* _progress = nullptr;
    QDialogButtonBox* _buttons = nullptr;
    QPushButton* _start = nullptr;
};
