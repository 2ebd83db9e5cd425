// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The fields of the dialog that exports frames, with their labels, tool tips and first values. The dialog reacts to
// changes of the fields (ExportDialog.h).
#pragma once

#include "studio/export/ExportChoices.h"

#include <map>

class MO_Scene;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QToolButton;
class QWidget;

/// Where a drawing came from, for the names of what is made of it.
struct ExportOrigin
{
    QString name;      ///< the files' names begin with it
    QString folder;    ///< of the drawing
    QString sceneName; ///< noted in the files; for a saved scene its folder's name
};

/// The values of the field "Format".
enum class ExportFormat
{
    PNG,
    PNG_8,
    EXR_FLOAT,
    EXR_HALF
};

/// The values of the field "Target" besides the rows of the table (Targets.h), which are 0 and more.
enum ExportTarget
{
    EXPORT_AS_SET = -2,  ///< the fields below it were set by hand
    EXPORT_FOR_MOST = -1 ///< what most programs take
};

/// The fields. The widget owns all others.
struct ExportFields
{
    QWidget* widget = nullptr;
    QComboBox* node = nullptr; ///< hidden where the scene has one map and one drawing
    QLineEdit* frames = nullptr;
    QSpinBox* width = nullptr;
    QLabel* size = nullptr; ///< shows the height
    std::map<ExportPicture, QCheckBox*> pictures;
    QToolButton* gloss = nullptr;    ///< sets the gloss of the colours
    QDoubleSpinBox* white = nullptr; ///< the height that white stands for; 0 is shown as a text
    QComboBox* target = nullptr;
    QComboBox* format = nullptr; ///< its data are ExportFormat
    QComboBox* layout = nullptr; ///< its data are NM_Layout
    QComboBox* yAxis = nullptr;  ///< its data are NM_YAxis
    QComboBox* alpha = nullptr;  ///< its data are NM_Alpha
    QSpinBox* pad = nullptr;
    QCheckBox* renderInFloat = nullptr;
    QLineEdit* folder = nullptr;
    QToolButton* browse = nullptr; ///< chooses the folder
    QLineEdit* file = nullptr;
    QLabel* files = nullptr; ///< shows the names of the files to write
};

/// Makes the fields and fills them with the scene's output node, all its frames, and the width and folder of its
/// drawings.
ExportFields makeExportFields(const MO_Scene& scene, const ExportOrigin& origin);
