// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AttrEditor: the widget that shows one attribute and lets people change it; one subclass for each class of attributes.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QWidget>

#include <functional>

/// What the editors of attributes use to make their changes.
struct AttrEditing
{
    /// Executes a command; null does nothing.
    std::function<void(MO_EditCommand)> execute;
    /// Ends a run of changes that are undone together.
    std::function<void()> endStep;
    /// Whether there are frames: without them, nothing can be animated.
    bool hasFrames = false;
};

/// The editor of an attribute. When the attribute has been deleted, the editor keeps the last value and changes
/// nothing.
class AttrEditor : public QWidget
{
public:
    /// The editor for the attribute's class; one that only shows the value as text when there is no better one.
    static AttrEditor* make(AT_Attr& attr, const AttrEditing& editing, QWidget* parent);

    AttrEditor(AT_Attr& attr, const AttrEditing& editing, QWidget* parent);
    ~AttrEditor() override;

    /// The attribute; null when it has been deleted.
    AT_Attr* attr() const { return _attr.get(); }

    /// Shows the value at a frame.
    virtual void synchronize(double frame) = 0;
    /// True when the editor shows the label itself, as a check box does.
    virtual bool showsLabel() const { return false; }
    /// The widget that receives the focus.
    virtual QWidget* field() const = 0;

protected:
    template<typename Attr>
    Attr* attrAs() const
    {
        return dynamic_cast<Attr*>(_attr.get());
    }

    /// Sets up a field: name, tool tip, focus by tab; the wheel scrolls the panel unless the field has the focus.
    void prepare(QWidget& field);
    /// Disables the editor while another attribute drives this one.
    void followSurrogate();
    bool eventFilter(QObject* watched, QEvent* event) override;

    const AttrEditing& editing() const { return _editing; }
    /// Executes a command as an undo step of its own.
    void enter(MO_EditCommand command) const;

private:
    UT_WeakPtr<AT_Attr> _attr;
    AttrEditing _editing;
};
