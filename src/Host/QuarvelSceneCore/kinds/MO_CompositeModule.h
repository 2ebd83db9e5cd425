// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_CompositeModule: paints its input pictures one over the other. Channels are associated (colour multiplied by
// alpha), so that a picture S over a picture D gives S + D (1 - alpha of S) in all four. A single picture is passed on
// unchanged, messages included.
#pragma once

#include "QuarvelSceneCore/kinds/MO_CompositeModuleBase.h"

/// The scene's ordinary composite. Its attribute "CompositeOrder" says which input ends on top: LAST_PORT_FIRST, the
/// default, puts the first port on top.
class QUARVELSCENECORE_EXPORT MO_CompositeModule : public MO_CompositeModuleBase
{
public:
    MO_CompositeModule();
    ~MO_CompositeModule() override;

    /// "COMPOSITE".
    static QString Keyword();

    QString keyword() const override;
    QString baseDisplayName() const override;
    void accept(MO_AbstractModuleVisitor& visitor) override;
    MO_CompositeType::CompositeOrder compositeOrder(const MO_BaseContext& context) override;
    /// Sets the attribute.
    void setCompositeOrder(MO_CompositeType::CompositeOrder order);
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context,
                              const std::vector<node_render::PortRenderInfo>& ports) override;

private:
    class OrderAttr;
    OrderAttr* _order;
};
