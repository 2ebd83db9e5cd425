// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ElementsView: the elements of the scene with their drawings, and where these are exposed.
#pragma once

#include "QuarvelSceneCore/attributes/AT_ExposureSheet.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "studio/document/StudioDocument.h"

#include <QWidget>

#include <vector>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The contents of the dock "Elements".
class ElementsView : public QWidget
{
    Q_OBJECT

public:
    explicit ElementsView(StudioDocument& document, QWidget* parent = nullptr);
    ~ElementsView() override;

    QTreeWidget& tree() const { return *_tree; }
    /// Shows the drawing of the current row from the current frame on.
    void exposeCurrent();
    /// Shows nothing of the current row's element from the current frame on.
    void exposeNothing();

    /// The frames at which a drawing is shown, as people write them: "1-4, 9", where the scene's last frame ends the
    /// last exposure.
    static QString framesOf(const AT_ExposureSheet& sheet, const QString& drawing, int first, int last);

private:
    class DrawingRow;
    struct ShownElement;

    void refresh();
    void rebuild();
    bool isShown() const;
    void showFrame();
    void showSelection();
    void takeSelection();
    MO_ElementModule* elementOf(const QTreeWidgetItem* item) const;
    void expose(MO_ElementModule& element, const QString& drawing);

    StudioDocument& _document;
    QTreeWidget* _tree;
    QPushButton* _expose;
    QPushButton* _nothing;
    std::vector<ShownElement> _shown;
    std::pair<int, int> _shownFrames; ///< the scene's first and last
    bool _synchronizing = false;
};
