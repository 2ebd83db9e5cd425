// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FrameValueWriter: writes what the attributes of a scene hold at a frame, for keys and digests of frames.
#pragma once

#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"

#include <QDataStream>

/// Writes the values of the attributes that it visits, with all bits. Drawings count by name.
class FrameValueWriter : public AT_AttrVisitor
{
public:
    /// @param out must outlive the writer
    FrameValueWriter(QDataStream& out, double frame) : _out(out), _frame(frame) {}

    void visitAttr(AT_Attr& attr) override;
    void visitBool(AT_BoolAttr& attr) override;
    void visitDouble(AT_DoubleAttr& attr) override;
    void visitInt(AT_IntAttr& attr) override;
    void visitEnum(AT_EnumAttrBase& attr) override;
    void visitDrawing(AT_DrawingAttr& attr) override;

private:
    QDataStream& _out;
    double _frame;
};
