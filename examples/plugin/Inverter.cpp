// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A small node of another maker: it inverts the colours of what comes in. It is here to show, and to check, that the
// installed headers and libraries are all that a plug-in needs.
#include "QuarvelSceneCore/MO_CompositeModuleBase.h"
#include "QuarvelSceneCore/MO_CompositeModuleBitmapHandler.h"
#include "QuarvelSceneCore/MO_ModuleFactory.h"
#include "QuarvelSceneCore/MO_SoftContext.h"

namespace {

// Associated colours: what is covered fully inverts to full minus itself, what is not covered stays nothing.
void invert(CEL_PixmapAreaRGBA16& pixmap)
{
    const auto difference = [](int a, int b) { return static_cast<std::int16_t>(a - b); };
    for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
        for (CEL_PixelRGBA16& pixel : pixmap.row(y))
            pixel = {difference(pixel.a, pixel.r), difference(pixel.a, pixel.g), difference(pixel.a, pixel.b), pixel.a};
}

class InverterHandler final : public MO_CompositeModuleBitmapHandler
{
public:
    using MO_CompositeModuleBitmapHandler::MO_CompositeModuleBitmapHandler;

protected:
    void acceptInputCel(const MO_SoftContext& context, CA_CelRef cel) override
    {
        _cel = cel->getWorkingCopy(context.mainCelFormat2d());
        if (const auto pixmap = _cel->pixmap().dynamicCast<CEL_PixmapAreaRGBA16>())
            invert(*pixmap);
    }

    void finishRender(const MO_SoftContext& context, CA_CelRef delivered) override
    {
        setCel(context, _cel ? _cel : delivered);
    }

private:
    CA_CelRef _cel;
};

class Inverter final : public MO_CompositeModuleBase
{
public:
    Inverter() { addInImagePort(); }
    static QString Keyword() { return QStringLiteral("Inverter"); }
    QString keyword() const override { return Keyword(); }
    QString baseDisplayName() const override { return QStringLiteral("Inverter"); }

    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>& ports) override
    {
        const MO_CompositeModuleBitmapHandler::CompositeModuleInterface module{this, false, true, false, {1.0, -1.0}};
        return UT_SharedPtr<MO_SoftRenderInterface>(new InverterHandler(module, ports));
    }
};

const MO_ModuleRegistration<Inverter> kRegistration;

} // namespace
