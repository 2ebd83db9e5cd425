// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AttrEditor: the widget that shows one attribute and lets people change it, one class for each class of attributes.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelSceneCore/attributes/AT_Attr.h"
#include "QuarvelSceneCore/editing/MO_EditCommand.h"

#include <QWidget>

#include <functional>

/// How the editors of attributes get their changes done.
struct AttrEditing
{
    /// Executes a command; null does nothing.
    std::function<void(MO_EditCommand)> execute;
    /// Ends a run of changes that belong together.
    std::function<void()> endStep;
    /// Whether there are frames at all: without them there is nothing to animate.
    bool hasFrames = false;
};

/// The editor of an attribute, which may be gone: then it shows what it showed last and changes nothing.
class AttrEditor : public QWidget
{
public:
    /// The editor for the attribute's class; one that only shows the text where there is no better one.
    static AttrEditor* make(AT_Attr& attr, const AttrEditing& editing, QWidget* parent);

    AttrEditor(AT_Attr& attr, const AttrEditing& editing, QWidget* parent);
    ~AttrEditor() override;

    /// The attribute; null when it is gone.
    AT_Attr* attr() const { return _attr.get(); }

    /// Shows the value at a frame.
    virtual void synchronize(double frame) = 0;
    /// True when the label is part of the editor, as it is of a check box.
    virtual bool showsLabel() const { return false; }
    /// The widget that gets the focus when people come to this editor.
    virtual QWidget* field() const = 0;

protected:
    template<typename Attr>
    Attr* attrAs() const
    {
        return dynamic_cast<Attr*>(_attr.get());
    }

    /// Does what every field needs: name, tool tip, focus by tab; the wheel scrolls the panel unless the field has the
    /// focus.
    void prepare(QWidget& field);
    /// Switches the fields off while a surrogate drives the attribute.
    void followSurrogate();
    bool eventFilter(QObject* watched, QEvent* event) override;

    const AttrEditing& editing() const { return _editing; }
    /// Executes a command that is a change of its own, whatever came before.
    void enter(MO_EditCommand command) const;

private:
    UT_WeakPtr<AT_Attr> _attr;
    AttrEditing _editing;
};
