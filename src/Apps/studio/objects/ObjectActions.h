// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectActions: the actions on the selected objects. The bar beside the object, the table, the context menu and the
// Edit menu share them.
#pragma once

#include "studio/objects/DocumentObjects.h"

#include <functional>

class QAction;
class QMenu;
class QWidget;

/// The actions of one window.
class ObjectActions : public QObject
{
    Q_OBJECT

public:
    /// @param window the parent of dialogs
    ObjectActions(DocumentObjects& objects, QWidget& window);

    QAction* carve() const { return _carve; }
    QAction* cutOut() const { return _cutOut; }
    QAction* hide() const { return _hide; }
    QAction* solo() const { return _solo; }
    QAction* copy() const { return _copy; }
    QAction* reset() const { return _reset; }

    /// Makes the actions' shortcuts work in a widget and its children.
    void addKeysTo(QWidget& widget) const;
    /// Fills a menu with all actions.
    void fillMenu(QMenu& menu);
    /// Sets the function that gives an object's breadth, for presets that depend on it. Without it, breadths are
    /// unknown.
    void setBreadth(std::function<double(const SceneObject&)> breadth) { _breadth = std::move(breadth); }
    /// Must be called after the window's colours have changed.
    void refreshIcons();

private:
    QAction* make(const QString& text, const QString& toolTip, const QKeySequence& keys);
    void update();
    void copyValues();
    void pasteValues();
    void resetValues();
    void resetInTable(ObjectValue value);
    void resetRim();
    void resetTilt();
    double frame() const;
    void fillPresets(QMenu& menu);
    void applyPreset(const struct ObjectPreset& preset);
    void saveAsPreset();

    DocumentObjects& _objects;
    QWidget& _window;
    std::function<double(const SceneObject&)> _breadth;
    QAction* _carve;
    QAction* _cutOut;
    QAction* _hide;
    QAction* _solo;
    QAction* _join;
    QAction* _separate;
    QAction* _copy;
    QAction* _paste;
    QAction* _reset;
};
