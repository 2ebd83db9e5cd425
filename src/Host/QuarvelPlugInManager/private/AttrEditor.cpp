// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The common parts of attribute editors, and the choice of the editor for an attribute.
#include "QuarvelPlugInManager/private/AttrEditor.h"

#include "QuarvelPlugInManager/private/ChoiceAttrEditors.h"
#include "QuarvelPlugInManager/private/NumberAttrEditor.h"
#include "QuarvelPlugInManager/private/TextAttrEditors.h"
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

/// Makes the editor for the class of the attribute that it visits.
class Maker : public AT_AttrVisitor
{
public:
    Maker(const AttrEditing& editing, QWidget* parent) : _editing(editing), _parent(parent) {}

    void visitAttr(AT_Attr& attr) override { made = new ShownAttrEditor(attr, _editing, _parent); }
    void visitBool(AT_BoolAttr& attr) override { made = new BoolAttrEditor(attr, _editing, _parent); }
    void visitEnum(AT_EnumAttrBase& attr) override { made = new EnumAttrEditor(attr, _editing, _parent); }
    void visitDouble(AT_DoubleAttr& attr) override { made = new NumberAttrEditor(attr, _editing, _parent); }
    void visitInt(AT_IntAttr& attr) override { made = new NumberAttrEditor(attr, _editing, _parent); }
    void visitString(AT_StringAttr& attr) override
    {
        if (attr.isMultiline())
            made = new LongTextAttrEditor(attr, _editing, _parent);
        else
            made = new TextAttrEditor(attr, _editing, _parent);
    }

    AttrEditor* made = nullptr;

private:
    const AttrEditing& _editing;
    QWidget* _parent;
};

} // namespace

AttrEditor* AttrEditor::make(AT_Attr& attr, const AttrEditing& editing, QWidget* parent)
{
    Maker maker(editing, parent);
    attr.accept(maker);
    if (!maker.made)
        maker.visitAttr(attr);
    return maker.made;
}

AttrEditor::AttrEditor(AT_Attr& attr, const AttrEditing& editing, QWidget* parent)
    : QWidget(parent), _attr(&attr), _editing(editing)
{
    setObjectName(attr.keyword());
}

AttrEditor::~AttrEditor() = default;

void AttrEditor::prepare(QWidget& field)
{
    const AT_Attr* const shown = attr();
    field.setAccessibleName(shown->label());
    field.setToolTip(QCoreApplication::translate("AttrEditor", "%1 (in files: %2)")
                         .arg(shown->label().toHtmlEscaped(), shown->keyword().toHtmlEscaped()));
    field.setFocusPolicy(Qt::StrongFocus);
    field.installEventFilter(this);
}

void AttrEditor::followSurrogate()
{
    const auto* const simple = attrAs<AT_SimpleAttr>();
    if (!simple)
        return;
    const bool isDriven = simple->surrogate().get() != nullptr;
    setEnabled(!isDriven);
    setToolTip(isDriven ? QCoreApplication::translate("AttrEditor", "Linked: the value comes from another attribute.")
                        : QString());
}

void AttrEditor::enter(MO_EditCommand command) const
{
    _editing.endStep();
    _editing.execute(std::move(command));
}

bool AttrEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut)
        _editing.endStep();
    const auto* const field = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Wheel && field && !field->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
