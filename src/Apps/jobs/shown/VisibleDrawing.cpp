// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Replaces each node by a stand-in. The stand-in's request handler asks the node's handler about every drawing, and its
// painter carries out the decision.
#include "jobs/shown/VisibleDrawing.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelCelCore/CEL_Compositing.h"
#include "QuarvelSceneCore/interfaces/MO_CompositeModuleBitmapHandler.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
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

// Paints the inputs in the order of the ports.
class Painter final : public MO_CompositeModuleBitmapHandler
{
public:
    Painter(MO_Module* module, const RD_RenderJob& job, double frame,
            const std::vector<node_render::PortRenderInfo>& ports, const QString& node, DrawingNotes* notes)
        : MO_CompositeModuleBitmapHandler({module,
                                           job.parameters().celFormat() == CEL_FORMAT_RGBAFLOAT,
                                           job.parameters().celFormat() == CEL_FORMAT_RGBA16,
                                           false,
                                           {1.0, -1.0}},
                                          ports)
        , _frame(frame)
        , _window(job.frame())
        , _node(node)
        , _notes(notes)
    {}

    void softRender(MO_SoftContext& context, int port) override
    {
        _port = port;
        MO_CompositeModuleBitmapHandler::softRender(context, port);
    }

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
            _notes->inputs.push_back({_node, _port, number, CoverageBits(*shape, _window)});
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
        if (4 * room.area() > _window.area())
            room.add(_window);
        return room;
    }

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

    double _frame;
    Math::Box2di _window;
    QString _node;
    DrawingNotes* _notes;
    int _port = 0;
    CA_CelRef _painted;
    Math::Box2di _rect; // of all that is painted
};

// The stand-in for a node.
class VisibleInputs final : public MO_CompositeModuleBase
{
public:
    VisibleInputs(MO_Module& node, DrawingNotes* notes) : _node(&node), _notes(notes)
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
        return UT_makeShared<Painter>(this, context.renderJob(), context.globalFrameKey().frame, ports,
                                      _node->instanceName(), _notes);
    }

private:
    MO_Module* _node;
    DrawingNotes* _notes;
};

bool endsTheWalk(const MO_Module& module)
{
    return NormalMapNode::is(module) || dynamic_cast<const VisibleInputs*>(&module) != nullptr;
}

VisibleInputs& replace(MO_Module& node, DrawingNotes* notes)
{
    auto& inputs = node.group()->emplace<VisibleInputs>(node, notes);
    for (unsigned i = 0; i < node.nInPorts(); ++i)
        if (const MO_Port* const source = node.inPort(i)->srcPort(); source && source->module())
            (void)MO_Scene::connect(*source->module(), inputs, i, source->index());
    const std::vector<MO_Port*> sinks = node.outPort(0)->sinks();
    for (MO_Port* const sink : sinks)
        (void)sink->connect(*inputs.outPort(0));
    return inputs;
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
    std::vector<MO_Module*> nodes;
    scene.root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            nodes.push_back(&module);
    });
    MO_Module* result = &shown;
    for (MO_Module* const node : nodes) {
        VisibleInputs& standIn = replace(*node, notes);
        if (node == &shown)
            result = &standIn;
    }
    return *result;
}
