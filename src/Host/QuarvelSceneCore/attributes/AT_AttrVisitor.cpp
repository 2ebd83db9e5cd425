// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The fallback for classes without an operation of their own.
#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"

#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/attributes/AT_StringAttr.h"

AT_AttrVisitor::~AT_AttrVisitor() = default;

void AT_AttrVisitor::visitAttr(AT_Attr&) {}

void AT_AttrVisitor::visitBool(AT_BoolAttr& attr)
{
    visitAttr(attr);
}

void AT_AttrVisitor::visitString(AT_StringAttr& attr)
{
    visitAttr(attr);
}

void AT_AttrVisitor::visitDouble(AT_DoubleAttr& attr)
{
    visitAttr(attr);
}

void AT_AttrVisitor::visitInt(AT_IntAttr& attr)
{
    visitAttr(attr);
}

void AT_AttrVisitor::visitEnum(AT_EnumAttrBase& attr)
{
    visitAttr(attr);
}

void AT_AttrVisitor::visitDrawing(AT_DrawingAttr& attr)
{
    visitAttr(attr);
}

bool AT_AttrVisitor::visitDynamic(const UT_DynKey&, AT_Attr&)
{
    return false;
}
