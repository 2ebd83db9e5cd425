// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The ordinary composite.
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"

#include "QuarvelSceneCore/attributes/AT_EnumAttr.h"
#include "QuarvelSceneCore/graph/MO_AbstractModuleVisitor.h"
#include "QuarvelSceneCore/graph/MO_BaseContext.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/kinds/private/MO_OverHandler.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MO_CompositeModule)
};

const AT_AttrMeta kOrderMeta(QStringLiteral("CompositeOrder"),
                             QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Order of the Inputs")));

const MO_ModuleRegistration<MO_CompositeModule> kRegistration;

} // namespace

class MO_CompositeModule::OrderAttr final : public AT_EnumAttr<MO_CompositeType::CompositeOrder>
{
public:
    OrderAttr() : AT_EnumAttr(kOrderMeta) {}

protected:
    void fillValueTable(ValueTable& table) const override
    {
        addValue(table, MO_CompositeType::LAST_PORT_FIRST, QStringLiteral("LAST_PORT_FIRST"),
                 Texts::tr("First Input on Top"), false);
        addValue(table, MO_CompositeType::PORT_ORDER, QStringLiteral("PORT_ORDER"), Texts::tr("Last Input on Top"),
                 false);
    }
};

MO_CompositeModule::MO_CompositeModule() : _order(new OrderAttr)
{
    registerAttr(_order);
    addInImagePort();
}

MO_CompositeModule::~MO_CompositeModule() = default;

QString MO_CompositeModule::Keyword()
{
    return QStringLiteral("COMPOSITE");
}

QString MO_CompositeModule::keyword() const
{
    return Keyword();
}

QString MO_CompositeModule::baseDisplayName() const
{
    return Texts::tr("Composite");
}

void MO_CompositeModule::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this);
}

MO_CompositeType::CompositeOrder MO_CompositeModule::compositeOrder(const MO_BaseContext& context)
{
    return _order->value(context.frameKey().frame) == MO_CompositeType::PORT_ORDER ? MO_CompositeType::PORT_ORDER
                                                                                   : MO_CompositeType::LAST_PORT_FIRST;
}

void MO_CompositeModule::setCompositeOrder(MO_CompositeType::CompositeOrder order)
{
    _order->setLocalValue(order);
}

UT_SharedPtr<MO_SoftRenderInterface>
MO_CompositeModule::createSoftRenderInterface(const RD_ScriptContext& context,
                                              const std::vector<node_render::PortRenderInfo>& ports)
{
    const RD_RenderParameters& parameters = context.renderJob().parameters();
    const MO_BaseContext frame(context.globalFrameKey(), parameters.resolution);
    return UT_makeShared<MO_OverHandler>(this, parameters.celFormat(), compositeOrder(frame), ports);
}
