// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Texts are written with their lengths and all other values in a fixed number of bytes.
#include "jobs/frames/FrameValues.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"

void FrameValueWriter::visitAttr(AT_Attr& attr)
{
    _out << attr.displayText(_frame);
}

void FrameValueWriter::visitBool(AT_BoolAttr& attr)
{
    _out << attr.value(_frame);
}

void FrameValueWriter::visitDouble(AT_DoubleAttr& attr)
{
    _out << attr.value(_frame);
}

void FrameValueWriter::visitInt(AT_IntAttr& attr)
{
    _out << attr.value(_frame);
}

void FrameValueWriter::visitEnum(AT_EnumAttrBase& attr)
{
    _out << attr.effectiveInt(_frame);
}

void FrameValueWriter::visitDrawing(AT_DrawingAttr& attr)
{
    _out << attr.drawing(_frame);
}
