// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The render: inputs are merged as they arrive; at the end the ports are composed one after the other. An object is
// built when the first of its ports is composed, and its memory goes to the next one after the last of them.
#include "render/VallorinRenderHandler.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelSceneCore/MO_SoftRenderServices.h"
#include "objects/ObjectDefinitionDiscovery.h"
#include "render/Composition.h"
#include "render/CoverageMerge.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <deque>
#include <limits>
#include <utility>

namespace {

constexpr int kNoObject = -1;
constexpr int kCutOut = 0;

// The table's text may say "inf" or "nan"; a render uses the default instead.
double finiteOr(double value, double otherwise)
{
    return std::isfinite(value) ? value : otherwise;
}

// An infinite product is clamped to the largest finite number; NaN becomes 0.
double held(double product)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    return std::isnan(product) ? 0.0 : std::clamp(product, -kLargest, kLargest);
}

void mergeInto(CEL_PixmapArea& accumulator, const CEL_PixmapArea& input)
{
    CEL_withFormat(accumulator, [&](auto& typed) {
        using Pixel = CEL_PixelOf<decltype(typed)>;
        if (const auto* const typedInput = CEL_asFormat<Pixel>(input))
            mergeCoverage<Pixel>(typed, *typedInput);
    });
}

bool isRenderFormat(int format)
{
    return format == CEL_FORMAT_RGBA16 || format == CEL_FORMAT_RGBAFLOAT;
}

} // namespace

// Inputs of an object whose pixels are still to be painted, in the order of their ports. They are merged when the
// accumulator is read, which is when the object is built: until then, neither they nor the accumulator take memory.
class VallorinRenderHandler::MergeLater
{
public:
    explicit MergeLater(UT_SharedPtr<CEL_PixmapArea> before) : _merged(std::move(before)) {}

    void add(const UT_SharedPtr<CEL_PixmapArea>& input) { _inputs.push_back(input); }

    const UT_SharedPtr<CEL_PixmapArea>& merged() const { return _merged; }
    const std::deque<UT_SharedPtr<CEL_PixmapArea>>& inputs() const { return _inputs; }

    // Merges what was added since, and gives it away.
    UT_SharedPtr<CEL_PixmapArea> merge()
    {
        for (; !_inputs.empty(); _inputs.pop_front())
            mergeInto(*_merged, *_inputs.front());
        return std::move(_merged);
    }

private:
    UT_SharedPtr<CEL_PixmapArea> _merged;
    std::deque<UT_SharedPtr<CEL_PixmapArea>> _inputs;
};

VallorinRenderHandler::VallorinRenderHandler(double frame, const CompositeModuleInterface& module,
                                             const std::vector<node_render::PortRenderInfo>& ports)
    : MO_CompositeModuleBitmapHandler(module, ports)
{
    for (const node_render::PortRenderInfo& port : ports) {
        const ObjectDefinition* definition = ObjectDefinitionDiscovery::findObjectDefinition(port.sourceModule);
        const int id = definition ? ObjectDefinition::objectId(definition, frame) : kNoObject;
        portObjectIds.push_back(id);
        objectAccumulators.try_emplace(id);
    }
}

VallorinRenderHandler::~VallorinRenderHandler() = default;

void VallorinRenderHandler::softRender(MO_SoftContext& context, int port)
{
    MO_CompositeModuleBitmapHandler::softRender(context, port);
    ++currentInput;
}

void VallorinRenderHandler::acceptInputCel(const MO_SoftContext& context, CA_CelRef cel)
{
    if (!cel)
        return;
    takeMessage(*cel);
    const CA_CelRef converted = cel->convertTo(context.mainCelFormat2d());
    const UT_SharedPtr<CEL_PixmapArea> input = converted->pixmap();
    const int objectId = currentObjectId();
    if (!input || objectId < 0)
        return;
    if (objectId != kCutOut)
        accumulate(context, objectId, input);
    // Nobody else holds what was made by a conversion, so it needs no copy.
    inputPixmaps[currentInput] = converted.get() == cel.get() ? input->clone() : input;
}

// The message that travels with the cel overrides the object's number found in the graph.
void VallorinRenderHandler::takeMessage(const CEL_Cel& cel)
{
    const auto message =
        cel.findMessage(ObjectDefinition::objectDefinitionMessageId()).dynamicCast<ObjectDefinitionMessage>();
    if (message && currentInput < static_cast<int>(portObjectIds.size()))
        portObjectIds[static_cast<std::size_t>(currentInput)] = message->objectId();
}

int VallorinRenderHandler::currentObjectId() const
{
    const auto index = static_cast<std::size_t>(currentInput);
    return index < portObjectIds.size() ? portObjectIds[index] : kNoObject;
}

void VallorinRenderHandler::accumulate(const MO_SoftContext& context, int objectId,
                                       const UT_SharedPtr<CEL_PixmapArea>& input)
{
    UT_SharedPtr<CEL_PixmapArea>& accumulator = objectAccumulators[objectId];
    if (!isRenderFormat(input->format()) || input->size().width < 1 || input->size().height < 1)
        return;
    if (!accumulator)
        accumulator = CEL_PixmapFactory::create2d(context.mainCelFormat2d(), input->size(), context.outputRect());
    if (input->isDeferred())
        accumulateLater(objectId, input);
    else
        mergeInto(*accumulator, *input);
}

// All inputs of an object wait in one list. If each waited for the one before it, as many calls as there are inputs
// would be nested in each other when the last is read.
void VallorinRenderHandler::accumulateLater(int objectId, const UT_SharedPtr<CEL_PixmapArea>& input)
{
    UT_SharedPtr<CEL_PixmapArea>& accumulator = objectAccumulators[objectId];
    std::weak_ptr<MergeLater>& waiting = waitingMerges[objectId];
    std::shared_ptr<MergeLater> merge = waiting.lock();
    if (!merge)
        waiting = merge = std::make_shared<MergeLater>(accumulator);
    merge->add(input);
    const Math::Box2di rect = accumulator->unitedInCanvas(*input);
    accumulator = CEL_PixmapFactory::create2d(accumulator->format(), accumulator->size(), accumulator->canvasRect());
    accumulator->defer(rect, [merge] { return merge->merge(); });
}

AccumulatedObject VallorinRenderHandler::takeAccumulator(int objectId)
{
    const auto found = objectAccumulators.find(objectId);
    if (found == objectAccumulators.end() || !found->second)
        return {};
    const UT_SharedPtr<CEL_PixmapArea> accumulator = std::exchange(found->second, nullptr);
    const std::shared_ptr<MergeLater> merge = accumulator->isDeferred() ? waitingMerges[objectId].lock() : nullptr;
    if (!merge)
        return {accumulator, {}, accumulator->allocatedRect()};
    return {merge->merged(), {merge->inputs().begin(), merge->inputs().end()}, accumulator->allocatedRect()};
}

std::map<int, std::vector<int>> VallorinRenderHandler::portsOfObjects() const
{
    std::map<int, std::vector<int>> ports;
    for (const auto& [port, input] : inputPixmaps)
        ports[portObjectIds[static_cast<std::size_t>(port)]].push_back(port);
    return ports;
}

Math::Box2di VallorinRenderHandler::coveredBy(const std::vector<int>& ports) const
{
    Math::Box2di covered;
    for (const int port : ports)
        covered.add(inputPixmaps.at(port)->allocatedRect());
    return covered;
}

void VallorinRenderHandler::finishRender(const MO_SoftContext& context, CA_CelRef delivered)
{
    std::vector<VallorinAttributes::ObjectInformation> objects;
    VallorinAttributes::getObjectInformation(objectInformation, objects);
    std::printf("###### FINISHING VALLORIN %d models %d objects to render\n",
                static_cast<int>(objectAccumulators.size()), static_cast<int>(objects.size()));
    const UT_SharedPtr<CEL_PixmapArea> reference =
        delivered ? delivered->getWorkingCopy(context.mainCelFormat2d())->pixmap() : nullptr;
    if (objects.empty() || !reference) {
        MO_SoftRenderServices::setBlankCel(context, 0);
        return;
    }
    const auto output =
        CEL_PixmapFactory::create2d(context.mainCelFormat2d(), reference->size(), reference->canvasRect());
    ObjectRecords records;
    for (const VallorinAttributes::ObjectInformation& object : objects)
        records.insert_or_assign(object.objectId, object);
    composePorts(context, reference, records, *output);
    auto cel = UT_makeShared<CEL_Cel>();
    cel->setRepresentation(output);
    setCel(context, cel);
}

ObjectVolume VallorinRenderHandler::buildVolume(const MO_SoftContext& context,
                                                const UT_SharedPtr<CEL_PixmapArea>& reference, int objectId,
                                                const std::vector<int>& ports, const ObjectRecords& records)
{
    const auto record = records.find(objectId);
    if (record == records.end())
        return {};
    AccumulatedObject accumulated = takeAccumulator(objectId);
    if (!accumulated.merged)
        return {};
    const VallorinAttributes::ObjectInformation& object = record->second;
    const double truckFactor = useTruckFactor ? context.portContext(0).truckFactor() : 1.0;
    const double bevel = held(finiteOr(object.bevelSize, 0.0) * blurScale * truckFactor);
    const double elevation = held(finiteOr(object.elevation, 0.0) * truckFactor * elevationScale);
    const double smoothness = held(finiteOr(object.elevationSmoothness, 1.0) * elevationSmoothness);
    return buildObjectVolume(reference, bevel, context.resolutionX(), generateNormals, elevation,
                             std::move(accumulated), elevationRanges[objectId], normalQuality, smoothness,
                             clipBlurredWithGeometry, coveredBy(ports), context.shownRect(), ports.size() == 1);
}

void VallorinRenderHandler::composePorts(const MO_SoftContext& context, const UT_SharedPtr<CEL_PixmapArea>& reference,
                                         const ObjectRecords& records, CEL_PixmapArea& output)
{
    const std::map<int, std::vector<int>> ports = portsOfObjects();
    std::map<int, ObjectVolume> volumes;
    PortComposition composition(*this, output, reference->canvasRect(), context.shownRect());
    for (auto& entry : inputPixmaps) {
        const int port = entry.first;
        auto& input = entry.second;
        const int objectId = portObjectIds[static_cast<std::size_t>(port)];
        const std::vector<int>& all = ports.at(objectId);
        const auto [volume, isNew] = volumes.try_emplace(objectId);
        if (isNew && objectId > kCutOut) {
            volume->second = buildVolume(context, reference, objectId, all, records);
            composition.include(volume->second.rect);
        }
        if (volume->second.bands)
            volume->second.bands([&](const auto& band) { composition.add(port, input, band); });
        else
            composition.add(port, input, volume->second.pixels);
        if (all.back() == port)
            volumes.erase(volume);
        input = nullptr;
    }
    composition.finish();
}
