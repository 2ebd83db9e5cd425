// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_AttrVisitor: does something with an attribute according to its class, without a chain of casts.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

class AT_Attr;
class AT_BoolAttr;
class AT_DoubleAttr;
class AT_DrawingAttr;
class AT_EnumAttrBase;
class AT_IntAttr;
class AT_StringAttr;
class UT_DynKey;

/// One operation per class of attributes; those that are not overridden end in visitAttr().
class QUARVELSCENECORE_EXPORT AT_AttrVisitor
{
public:
    AT_AttrVisitor() = default;
    AT_AttrVisitor(const AT_AttrVisitor&) = default;
    AT_AttrVisitor& operator=(const AT_AttrVisitor&) = default;
    virtual ~AT_AttrVisitor();

    /// The operation for attributes whose class has no overridden operation in this visitor. Does nothing unless
    /// overridden.
    virtual void visitAttr(AT_Attr& attr);
    virtual void visitBool(AT_BoolAttr& attr);
    virtual void visitString(AT_StringAttr& attr);
    virtual void visitDouble(AT_DoubleAttr& attr);
    virtual void visitInt(AT_IntAttr& attr);
    virtual void visitEnum(AT_EnumAttrBase& attr);
    virtual void visitDrawing(AT_DrawingAttr& attr);

    /// The operation for classes of attributes that this interface does not know: such a class first offers itself
    /// under a key of its own; when the visitor does not know the key, it uses the operation of its base class.
    ///
    /// @return whether the visitor handled the attribute. False unless overridden.
    virtual bool visitDynamic(const UT_DynKey& key, AT_Attr& attr);
};
