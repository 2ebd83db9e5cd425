// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ExportDialog: frames into picture files: which, what of them, in which form and where.
#pragma once

#include "studio/export/ExportJob.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QSpinBox;

class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param name what the files are called unless the person writes something else
    ExportDialog(const MO_Scene& scene, const QString& name, const QString& folder, QWidget* parent = nullptr);

    /// What the dialog says now.
    ExportChoices choices() const;
    /// What the dialog tells under its fields.
    QString message() const;

    /// Does what the button "Export" does.
    void begin();

    void done(int result) override;

private:
    void addWhat(QFormLayout& form);
    void addForm(QFormLayout& form);
    void addWhere(QFormLayout& form, const QString& folder);
    void nodeChanged();
    void update();
    void chooseFolder();
    void ended(const RenderFramesResult& result);

    const MO_Scene& _scene;
    QString _name;
    std::unique_ptr<ExportJob> _job;

    QWidget* _fields;
    QComboBox* _node = nullptr;
    QLineEdit* _frames = nullptr;
    QComboBox* _shown = nullptr;
    QSpinBox* _width = nullptr;
    QLabel* _size = nullptr;
    QComboBox* _format = nullptr;
    QComboBox* _layout = nullptr;
    QComboBox* _yAxis = nullptr;
    QCheckBox* _float = nullptr;
    QSpinBox* _pad = nullptr;
    QLineEdit* _folder = nullptr;
    QLineEdit* _file = nullptr;
    QLabel* _message = nullptr;
    QProgressBar* _progress = nullptr;
    QDialogButtonBox* _buttons = nullptr;
};
