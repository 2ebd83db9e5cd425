// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every value is written with its length, so that different lists of values never give the same key.
#include "jobs/frames/FrameState.h"

#include "QuarvelSceneCore/attributes/AT_AttrVisitor.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_EnumAttrBase.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_Lighting.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <QDataStream>

namespace {

class StateWriter : public AT_AttrVisitor
{
public:
    StateWriter(QByteArray& state, double frame) : _out(&state, QIODevice::WriteOnly), _frame(frame) {}

    void visitAttr(AT_Attr& attr) override { _out << attr.displayText(_frame); }
    void visitDouble(AT_DoubleAttr& attr) override { _out << attr.value(_frame); }
    void visitInt(AT_IntAttr& attr) override { _out << attr.value(_frame); }
    void visitEnum(AT_EnumAttrBase& attr) override { _out << attr.effectiveInt(_frame); }
    void visitDrawing(AT_DrawingAttr& attr) override { _out << attr.drawing(_frame); }

private:
    QDataStream _out;
    double _frame;
};

} // namespace

QByteArray frameStateOf(const MO_Scene& scene, double frame,
                        const std::function<bool(const MO_Module& module, const AT_Attr& attr)>& counts)
{
    QByteArray state;
    StateWriter writer(state, frame);
    scene.truckFactorAttr().accept(writer);
    scene.root().forEachModule([&](const MO_Module& module) {
        for (AT_Attr* const attr : module.attrs())
            if (!counts || counts(module, *attr))
                attr->accept(writer);
    });
    return state;
}
