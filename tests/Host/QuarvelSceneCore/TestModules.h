// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Modules and drawings for the tests of the node graph.
#pragma once

#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderInterface.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/interfaces/node_render.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include <string>
#include <vector>

namespace test_modules {

/// A module with one input that overrides nothing in a render.
class PassModule : public MO_Module
{
public:
    PassModule() { addInImagePort(); }
    QString keyword() const override { return QStringLiteral("PASS"); }
    QString baseDisplayName() const override { return QStringLiteral("Pass"); }
};

using Log = std::vector<std::string>;

/// Writes its calls into a log. It may have a request and may render pixels (it passes on the cel of its last input);
/// input port i needs the rectangle grown by growth.
class LoggingModule : public MO_Module
{
public:
    LoggingModule(std::string name, Log& log, unsigned inputs, bool requests, bool rendersPixels)
        : _name(std::move(name)), _log(log), _requests(requests), _rendersPixels(rendersPixels)
    {
        for (unsigned i = 0; i < inputs; ++i)
            addInImagePort();
    }

    int growth = 0;
    int refusedPort = -1; ///< the handler refuses drawings that come in through this port of modules upstream
    std::vector<node_render::PortRenderInfo> seenPorts;
    Math::Box2di seenRect;
    std::vector<CA_CelRef> seenCels;

    QString keyword() const override { return QStringLiteral("LOGGING"); }
    QString baseDisplayName() const override { return QString::fromStdString(_name); }

    Math::Box2di computeInputRect(const MO_PortContext&, int, const Math::Box2di& rect) override
    {
        return rect.getEnlarged(growth);
    }

    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext&, const std::vector<node_render::PortRenderInfo>& ports) override
    {
        seenPorts = ports;
        if (!_rendersPixels)
            return nullptr;
        return UT_makeShared<Interface>(*this);
    }

    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override
    {
        MO_Module::insertRenderingRequestForSrcPort(context, port);
        if (_requests)
            context.insertRequest(MO_RenderingRequestService::createRenderingRequest(this, createRequestHandler()));
    }

    std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler() override
    {
        return std::make_unique<Handler>(*this);
    }

private:
    class Handler : public MO_RenderingRequestHandler
    {
    public:
        explicit Handler(LoggingModule& owner) : _owner(owner) {}
        void processDrawing(BaseContext&) override { _owner._log.push_back(_owner._name); }
        bool filterRequestForLeftPorts(const MO_Module&, int port) const override { return port != _owner.refusedPort; }

    private:
        LoggingModule& _owner;
    };

    class Interface : public MO_SoftRenderInterface
    {
    public:
        explicit Interface(LoggingModule& owner) : _owner(owner) {}
        void softRender(MO_SoftContext& context, int port) override
        {
            _owner._log.push_back(_owner._name + ".softRender" + std::to_string(port));
            _owner.seenRect = context.outputRect();
            _owner.seenCels.push_back(context.inputCel(port));
            if (context.inputCel(port))
                context.setOutputCel(0, context.inputCel(port));
        }
        void finish(MO_SoftContext&) override { _owner._log.push_back(_owner._name + ".finish"); }

    private:
        LoggingModule& _owner;
    };

    std::string _name;
    Log& _log;
    bool _requests;
    bool _rendersPixels;
};

inline const CM_ColorId_t kRed(1);
inline const CM_ColorId_t kGreen(2);

inline CM_SharedPtr<CM_Palette> palette()
{
    auto made = UT_makeShared<CM_Palette>(UT_String("test"));
    const auto add = [&](CM_ColorId_t id, CM_Rgba nominal) {
        auto color = UT_makeShared<CM_Color>(UT_String(), 0, id);
        color->SetNominalColor(nominal);
        made->addColor(color);
    };
    add(kRed, {255, 0, 0, 255});
    add(kGreen, {0, 255, 0, 255});
    return made;
}

/// A drawing of one rectangle, in scene units.
inline UT_SharedPtr<CELVEC_Kvd> rectangle(double x1, double y1, double x2, double y2, CM_ColorId_t color = kRed)
{
    auto drawing = UT_makeShared<CELVEC_Kvd>(palette());
    QPainterPath path;
    path.addRect(QRectF(QPointF(x1, y1), QPointF(x2, y2)));
    drawing->addShape(GR_Art::COLOUR, {path, color, 1.0, {}});
    return drawing;
}

/// An element that shows one drawing from frame 1 on.
inline MO_ElementModule& addElement(XUGroup& group, const UT_SharedPtr<CELVEC_Kvd>& drawing)
{
    auto& element = group.emplace<MO_ElementModule>();
    element.setDrawing(QStringLiteral("1"), drawing);
    AT_ExposureSheet exposures;
    exposures.setExposure(1, QStringLiteral("1"));
    element.drawingAttr()->setExposures(exposures);
    return element;
}

/// The text that would be saved of a scene.
inline QString savedText(const MO_Scene& scene)
{
    QString text;
    PO_XmlWriter writer(text);
    writer.startDocument();
    scene.writeXml(writer);
    writer.endDocument();
    return text;
}

} // namespace test_modules
