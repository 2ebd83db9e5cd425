// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The walk up the graph. Each recursive call handles one link of the path from the rendered module to a leaf; the path
// itself is a linked list on the stack, which the requests read when a drawing is reached.
#include "QuarvelSceneCore/rendering/private/RD_FrameRender.h"

#include "QuarvelSceneCore/graph/MO_AutoPortsNode.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/interfaces/MO_SoftContext.h"
#include "QuarvelSceneCore/interfaces/MO_SoftRenderInterface.h"
#include "QuarvelSceneCore/interfaces/node_render.h"
#include "QuarvelSceneCore/rendering/RD_KeptInputs.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

UT_Error tooDeep()
{
    const QString text =
        QCoreApplication::translate("RD_SoftRenderer", "more than %1 nodes follow each other in the graph");
    return {text.arg(RD_ScriptContext::kMaxDepth), UT_ErrorKind::REFUSED};
}

UT_Error tooEntangled()
{
    const QString text =
        QCoreApplication::translate("RD_SoftRenderer", "the drawings are reached on too many paths through the graph");
    return {text, UT_ErrorKind::REFUSED};
}

// The limit of every requested rectangle: pixels further away cannot matter to the picture.
Math::Box2di limitAround(const Math::Box2di& canvas)
{
    return canvas.getEnlarged(static_cast<int>(std::ceil(4.0 * std::hypot(canvas.width(), canvas.height()))));
}

std::vector<node_render::PortRenderInfo> inputsOf(MO_Module& module)
{
    std::vector<node_render::PortRenderInfo> inputs;
    const MO_AutoPortsNode* const automatic = module.portManipulator();
    for (unsigned i = 0; i < module.nInPorts(); ++i) {
        // A free port at the end waits for the next link and is not an input.
        if (automatic && !automatic->isValidAutoPort(i))
            continue;
        MO_Port* const source = module.inPort(i)->realSrcPort();
        inputs.push_back({source ? source->module() : nullptr, static_cast<int>(i), source});
    }
    return inputs;
}

// The output port whose picture a module delivers: the one linked to its first input when the module is disabled or has
// no output, the one linked to its exit when it is a group.
const MO_Port* deliveringPort(MO_Module& module)
{
    const auto behind = [](const MO_Port* input) { return input ? input->realSrcPort() : nullptr; };
    if (!module.enabled() || module.nOutPorts() == 0)
        return behind(module.inPort(0));
    if (const auto* group = dynamic_cast<const XUGroup*>(&module))
        return behind(group->exit().inPort(0));
    return module.outPort(0);
}

} // namespace

RD_FrameRender::RD_FrameRender(double frame, const RD_RenderParameters& parameters,
                               const std::optional<Math::Box2di>& shown, const RD_SoftRenderer::Progress& progress,
                               RD_KeptInputs* kept)
    : _script(MO_FrameKey{frame}, RD_RenderJob(parameters))
    , _shown(shown)
    , _progress(progress)
    , _kept(kept)
    , _limit(limitAround(_script.renderJob().canvas()))
{
    if (_kept)
        _kept->beginRender();
}

CA_CelRef RD_FrameRender::render(MO_Module& module)
{
    const MO_Port* const port = deliveringPort(module);
    MO_Module* const source = port ? port->module() : nullptr;
    if (!source)
        return nullptr;
    _script.scriptPorts(*source);
    if (_script.isTooDeep())
        throw Aborted{tooDeep()};
    return renderSource(*source, port->index(), _script.renderJob().canvas(), nullptr, Span{0.0, 1.0});
}

// Whether the picture at the end of the path is the one that is delivered, and not an input of another picture.
bool RD_FrameRender::isDelivered(const Step* path)
{
    for (const Step* step = path; step; step = step->downstream)
        if (step->rendersPixels)
            return false;
    return true;
}

RD_FrameRender::Span RD_FrameRender::Span::part(std::size_t index, std::size_t count) const
{
    // One more part than inputs: the last is for composing them.
    const double each = (to - from) / static_cast<double>(count + 1);
    return {from + each * static_cast<double>(index), from + each * static_cast<double>(index + 1)};
}

CA_CelRef RD_FrameRender::renderSource(MO_Module& module, unsigned outPort, const Math::Box2di& rect, const Step* path,
                                       const Span& span)
{
    CA_CelRef cel;
    if (const auto* element = dynamic_cast<const MO_ElementModule*>(&module)) {
        cel = renderElement(*element, rect, path);
    } else {
        const std::vector<node_render::PortRenderInfo> inputs = inputsOf(module);
        if (const auto renderer = module.createSoftRenderInterface(_script, inputs)) {
            MO_SoftContext context(_script.renderJob(), _script.globalFrameKey(), &module, rect);
            if (_shown && isDelivered(path))
                context.setShownRect(*_shown);
            for (std::size_t i = 0; i < inputs.size(); ++i) {
                const int port = inputs[i].port;
                context.setInputCel(port, renderInput(module, port, true, rect, path, span.part(i, inputs.size())));
                renderer->softRender(context, port);
                context.setInputCel(port, nullptr);
            }
            renderer->finish(context);
            cel = context.outputCel(static_cast<int>(outPort));
        } else if (!inputs.empty()) {
            cel = renderInput(module, inputs.front().port, false, rect, path, span);
        }
    }
    report(span.to);
    return cel;
}

CA_CelRef RD_FrameRender::renderInput(MO_Module& module, int port, bool rendersPixels, const Math::Box2di& rect,
                                      const Step* path, const Span& span)
{
    const MO_Port* const sourcePort = module.inPort(static_cast<unsigned>(port))->realSrcPort();
    MO_Module* const source = sourcePort ? sourcePort->module() : nullptr;
    if (!source)
        return nullptr;
    if (++_links > RD_SoftRenderer::kMaxLinks)
        throw Aborted{tooEntangled()};
    const Step step{path, &module, port, rendersPixels, path ? path->depth + 1 : 1};
    if (step.depth > RD_ScriptContext::kMaxDepth)
        throw Aborted{tooDeep()};
    const MO_PortContext context(_script.globalFrameKey(), _script.renderJob().parameters().resolution, &module, port);
    const Math::Box2di needed = module.computeInputRect(context, port, rect).getIntersection(_limit);
    const int place = _links;
    CA_CelRef cel = renderSource(*source, sourcePort->index(), needed, &step, span);
    return _kept && rendersPixels ? _kept->pixelsOf(cel, place, _script.renderJob().parameters().celFormat()) : cel;
}

CA_CelRef RD_FrameRender::renderElement(const MO_ElementModule& element, const Math::Box2di& rect, const Step* path)
{
    const double frame = _script.globalFrameKey().frame;
    const auto drawing = element.drawingAt(frame);
    if (!drawing)
        return nullptr;
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(drawing->shareForRendering());
    MO_RenderingRequestHandler::BaseContext context(cel, _script.globalFrameKey());
    process(context, path);

    CA_CelRef result = context.drawing();
    if (!result)
        return nullptr;
    const RD_RenderJob& job = _script.renderJob();
    const std::pair<int, int>& resolution = job.parameters().resolution;
    const MO_SceneCommon* const scene = element.sceneCommon();
    const QTransform sceneToPixel =
        scene ? scene->sceneToPixel(frame, resolution) : MO_SceneCommon::sceneToPixel(resolution, 1.0);
    result->setRenderArgs({element.drawingToScene(frame) * sceneToPixel, job.size(), job.canvas(), rect});
    return result;
}

void RD_FrameRender::process(MO_RenderingRequestHandler::BaseContext& drawing, const Step* path) const
{
    const auto reaches = [path](const MO_RenderingRequestHandler& handler, const Step* owner) {
        for (const Step* step = path; step != owner; step = step->downstream)
            if (!handler.filterRequestForLeftPorts(*step->module, step->port))
                return false;
        return true;
    };
    for (const Step* step = path; step; step = step->downstream) {
        bool claimed = false;
        for (const RD_ScriptContext::Request& request : _script.requestsFor(*step->module, step->port)) {
            if (!reaches(request->handler(), step))
                continue;
            request->handler().processRequestBottomUpOnElementModuleComputed(drawing);
            claimed = step->rendersPixels;
        }
        if (claimed)
            return;
    }
}

void RD_FrameRender::report(double done)
{
    _done = std::max(_done, done);
    if (_progress && !_progress(_done))
        throw Aborted{UT_stopped()};
}
