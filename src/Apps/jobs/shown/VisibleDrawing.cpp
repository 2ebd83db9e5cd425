// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Replaces each node by a stand-in. The stand-in's request handler asks the node's handler about every drawing, and its
// painter carries out the decision.
#include "jobs/shown/VisibleDrawing.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/CEL_Compositing.h"
#include "QuarvelSceneCore/interfaces/MO_CompositeModuleBitmapHandler.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderServices.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModuleBase.h"
#include "jobs/shown/NormalMapNode.h"

namespace {

constexpr int kNoObject = -1;

bool endsTheWalk(const MO_Module& module);

// The enabled definition that is farthest upstream along the first inputs.
ObjectDefinition* definitionBehind(MO_Module* module)
{
    ObjectDefinition* definition = nullptr;
    while (module && !endsTheWalk(*module)) {
        if (auto* const found = dynamic_cast<ObjectDefinition*>(module); found && module->enabled())
            definition = found;
        const MO_Port* const input = module->inPort(0);
        const MO_Port* const source = input ? input->realSrcPort() : nullptr;
        module = source ? source->module() : nullptr;
    }
    return definition;
}

int numberBehind(MO_Module* module, double frame)
{
    const ObjectDefinition* const definition = definitionBehind(module);
    return definition ? definition->objectId(frame) : kNoObject;
}

// Asks the node's handler about a copy of the drawing and attaches its message to the unchanged drawing. Removes the
// drawing if the handler does.
class AskingHandler final : public MO_RenderingRequestHandler
{
public:
    explicit AskingHandler(std::unique_ptr<MO_RenderingRequestHandler> nodes) : _nodes(std::move(nodes)) {}

    void processDrawing(BaseContext& context) override
    {
        if (!_nodes || !context.drawing())
            return;
        BaseContext asked = context;
        _nodes->processDrawing(asked);
        if (!asked.drawing() || asked.drawing()->isEmpty()) {
            context.drawing() = UT_makeShared<CEL_Cel>();
            return;
        }
        const UT_DynKey& key = ObjectDefinition::objectDefinitionMessageId();
        if (const auto message = asked.drawing()->findMessage(key))
            context.drawing()->addMessage(key, message);
    }

private:
    std::unique_ptr<MO_RenderingRequestHandler> _nodes;
};

// Receives the inputs in the order of the ports.
class InputHandler : public MO_CompositeModuleBitmapHandler
{
public:
    InputHandler(MO_Module* module, const RD_RenderJob& job, double frame,
                 const std::vector<node_render::PortRenderInfo>& ports)
        : MO_CompositeModuleBitmapHandler({module,
                                           job.parameters().celFormat() == CEL_FORMAT_RGBAFLOAT,
                                           job.parameters().celFormat() == CEL_FORMAT_RGBA16,
                                           false,
                                           {1.0, -1.0}},
                                          ports)
        , _frame(frame)
        , _window(job.frame())
    {}

    void softRender(MO_SoftContext& context, int port) override
    {
        _port = port;
        MO_CompositeModuleBitmapHandler::softRender(context, port);
    }

protected:
    // Of the input that is received.
    int port() const { return _port; }
    const Math::Box2di& window() const { return _window; }

    int numberOf(const CEL_Cel& cel) const
    {
        const auto message = cel.findMessage(ObjectDefinition::objectDefinitionMessageId());
        if (const auto object = message.dynamicCast<ObjectDefinitionMessage>())
            return object->objectId();
        for (const node_render::PortRenderInfo& info : ports())
            if (info.port == _port)
                return numberBehind(info.sourceModule, _frame);
        return kNoObject;
    }

private:
    double _frame;
    Math::Box2di _window;
    int _port = 0;
};

// Paints the inputs.
class Painter final : public InputHandler
{
public:
    Painter(MO_Module* module, const RD_RenderJob& job, double frame,
            const std::vector<node_render::PortRenderInfo>& ports, const QString& node, DrawingNotes* notes)
        : InputHandler(module, job, frame, ports), _node(node), _notes(notes)
    {}

protected:
    void acceptInputCel(const MO_SoftContext& context, CA_CelRef cel) override
    {
        const int number = numberOf(*cel);
        if (number < 0)
            return;
        const int format = context.mainCelFormat2d();
        const CA_CelRef pixels = cel->convertTo(format);
        const auto shape = pixels->pixmap();
        if (!shape)
            return;
        if (_notes) {
            _notes->inputs.push_back({_node, port(), number, CoverageBits(*shape, window())});
            if (_notes->wantsObjects)
                _notes->objects.paint(*shape, _node, number);
        }
        if (number == 0 && _painted)
            CEL_cutOut(*shape, *_painted->pixmap());
        else if (number > 0)
            paint(cel, pixels, format);
    }

    void finishRender(const MO_SoftContext& context, CA_CelRef) override
    {
        if (_painted)
            _painted->pixmap()->realloc(_rect, true);
        setCel(context, _painted);
    }

private:
    void paint(const CA_CelRef& cel, const CA_CelRef& pixels, int format)
    {
        _rect.add(pixels->pixmap()->allocatedRect());
        if (!_painted) {
            // What was converted has no other holder.
            _painted = pixels.get() == cel.get() ? cel->getWorkingCopy(format) : pixels;
            return;
        }
        CEL_PixmapArea& painted = *_painted->pixmap();
        if (!painted.allocatedRect().contains(_rect))
            painted.realloc(withRoom(painted), true);
        CEL_paintOver(*pixels->pixmap(), painted);
    }

    // A picture that has to grow once does so again, and each time takes new memory and a copy; so a large one gets the
    // whole window at once.
    Math::Box2di withRoom(const CEL_PixmapArea& painted) const
    {
        Math::Box2di room = painted.allocatedRect();
        room.add(_rect);
        if (4 * room.area() > window().area())
            room.add(window());
        return room;
    }

    QString _node;
    DrawingNotes* _notes;
    CA_CelRef _painted;
    Math::Box2di _rect; // of all that is painted
};

constinit const UT_DynKey kCoverage("coverage of the drawing");

// Paints the coverage of the inputs alone.
class CoveragePainter final : public InputHandler
{
public:
    CoveragePainter(MO_Module* module, const RD_RenderJob& job, double frame,
                    const std::vector<node_render::PortRenderInfo>& ports)
        : InputHandler(module, job, frame, ports), _coverage(UT_makeShared<CEL_CoveragePlane>(window()))
    {}

protected:
    void acceptInputCel(const MO_SoftContext&, CA_CelRef cel) override
    {
        const int number = numberOf(*cel);
        if (number < 0)
            return;
        const auto step = number == 0 ? CEL_CoverageStep::CUT_OUT : CEL_CoverageStep::PAINT_OVER;
        if (const auto drawing = cel->findBestVectorRepresentation(); drawing && cel->renderArgs()) {
            drawing->addCoverage(*cel->renderArgs(), step, *_coverage);
            return;
        }
        const auto pixels = cel->convertTo(CEL_FORMAT_RGBA16)->pixmap();
        if (const auto colours = pixels.dynamicCast<CEL_PixmapAreaRGBA16>())
            _coverage->add(*colours, step);
    }

    void finishRender(const MO_SoftContext& context, CA_CelRef) override
    {
        const CA_CelRef blank = MO_SoftRenderServices::createBlankCel(context);
        blank->addMessage(kCoverage, _coverage);
        setCel(context, blank);
    }

private:
    UT_SharedPtr<CEL_CoveragePlane> _coverage;
};

// The stand-in for a node.
class VisibleInputs final : public MO_CompositeModuleBase
{
public:
    enum class Paints
    {
        COLOURS,
        COVERAGE
    };

    VisibleInputs(MO_Module& node, Paints paints, DrawingNotes* notes) : _node(&node), _paints(paints), _notes(notes)
    {
        setEnabled(node.enabled());
        addInImagePort();
    }

    QString keyword() const override { return QStringLiteral("VISIBLE_INPUTS"); }
    QString baseDisplayName() const override { return QStringLiteral("Visible-Inputs"); }

    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override
    {
        MO_CompositeModuleBase::insertRenderingRequestForSrcPort(context, port);
        context.insertRequest(MO_RenderingRequestService::createRenderingRequest(
            this, std::make_unique<AskingHandler>(_node->createRequestHandler())));
    }

    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context,
                              const std::vector<node_render::PortRenderInfo>& ports) override
    {
        if (_paints == Paints::COVERAGE)
            return UT_makeShared<CoveragePainter>(this, context.renderJob(), context.globalFrameKey().frame, ports);
        return UT_makeShared<Painter>(this, context.renderJob(), context.globalFrameKey().frame, ports,
                                      _node->instanceName(), _notes);
    }

private:
    MO_Module* _node;
    Paints _paints;
    DrawingNotes* _notes;
};

bool endsTheWalk(const MO_Module& module)
{
    return NormalMapNode::is(module) || dynamic_cast<const VisibleInputs*>(&module) != nullptr;
}

VisibleInputs& replace(MO_Module& node, VisibleInputs::Paints paints, DrawingNotes* notes)
{
    auto& inputs = node.group()->emplace<VisibleInputs>(node, paints, notes);
    for (unsigned i = 0; i < node.nInPorts(); ++i)
        if (const MO_Port* const source = node.inPort(i)->srcPort(); source && source->module())
            (void)MO_Scene::connect(*source->module(), inputs, i, source->index());
    const std::vector<MO_Port*> sinks = node.outPort(0)->sinks();
    for (MO_Port* const sink : sinks)
        (void)sink->connect(*inputs.outPort(0));
    return inputs;
}

std::vector<MO_Module*> nodesOf(MO_Scene& scene)
{
    std::vector<MO_Module*> nodes;
    scene.root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            nodes.push_back(&module);
    });
    return nodes;
}

// @return what delivers the picture of `shown` then
MO_Module& replaceAll(const std::vector<MO_Module*>& nodes, MO_Module& shown, VisibleInputs::Paints paints,
                      DrawingNotes* notes)
{
    MO_Module* result = &shown;
    for (MO_Module* const node : nodes) {
        VisibleInputs& standIn = replace(*node, paints, notes);
        if (node == &shown)
            result = &standIn;
    }
    return *result;
}

} // namespace

ObjectDefinition* objectDefinitionBehind(const MO_Port& input)
{
    const MO_Port* const source = input.realSrcPort();
    return source ? definitionBehind(source->module()) : nullptr;
}

int objectNumberBehind(const MO_Port& input, double frame)
{
    const MO_Port* const source = input.realSrcPort();
    return numberBehind(source ? source->module() : nullptr, frame);
}

MO_Module& showDrawings(MO_Scene& scene, MO_Module& shown, DrawingNotes* notes)
{
    return replaceAll(nodesOf(scene), shown, VisibleInputs::Paints::COLOURS, notes);
}

MO_Module* showCoverage(MO_Scene& scene, MO_Module& shown)
{
    const std::vector<MO_Module*> nodes = nodesOf(scene);
    return nodes.size() == 1 ? &replaceAll(nodes, shown, VisibleInputs::Paints::COVERAGE, nullptr) : nullptr;
}

UT_SharedPtr<CEL_CoveragePlane> coverageOf(const CEL_Cel& picture)
{
    return picture.findMessage(kCoverage).dynamicCast<CEL_CoveragePlane>();
}
