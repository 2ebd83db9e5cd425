// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VallorinRenderHandler: turns the node's input cels into its one output cel (VolumeModel.h). One is made for each
// render, filled with a snapshot of the node's attributes, given one cel per input port in port order, and asked for
// the output at the end.
#pragma once

#include "QuarvelSceneCore/MO_CompositeModuleBitmapHandler.h"
#include "parameters/VallorinAttributes.h"
#include "render/ObjectVolume.h"

#include <QString>

#include <map>
#include <memory>
#include <utility>
#include <vector>

/// The render of one frame of the node. Used by one thread; the composition alone runs on several.
class VallorinRenderHandler final : public MO_CompositeModuleBitmapHandler
{
public:
    /// Composes output rows of one format; see Composition.h.
    template<typename Pixel>
    class BasicAccumFunctor;
    using AccumFunctor = BasicAccumFunctor<CEL_PixelRGBA16>;
    using AccumFunctorFloat = BasicAccumFunctor<CEL_PixelRGBAFloat>;

    using PixmapMap = std::map<int, UT_SharedPtr<CEL_PixmapArea>>;

    /// Finds the object definition that governs every input port, and takes its number at the frame.
    VallorinRenderHandler(double frame, const CompositeModuleInterface& module,
                          const std::vector<node_render::PortRenderInfo>& ports);
    ~VallorinRenderHandler() override;

    /// Counts the ports: every call belongs to the next port, whether a cel was delivered or not.
    void softRender(MO_SoftContext& context, int port) override;

    int currentInput = 0;           ///< the port whose cel is being delivered
    PixmapMap objectAccumulators;   ///< object number to all of its inputs merged, until its volume is built
    std::vector<int> portObjectIds; ///< object number of each port: -1 ignored, 0 a cut-out, 1 and above a volume
    PixmapMap inputPixmaps;         ///< port to its input in the render's format, until it is composed
    std::map<int, std::pair<float, float>> elevationRanges; ///< object number to the offset and scale of its elevation

    // The node's attributes at the frame.
    QString colorInformation;
    QString objectInformation;
    double blurScale = 1.0;
    double elevationScale = 1.0;
    double elevationSmoothness = 1.0;
    bool generateNormals = true;
    bool useTruckFactor = false;
    bool depthInBlue = false;
    bool clipBlurredWithGeometry = true;
    int normalQuality = 0;

protected:
    void acceptInputCel(const MO_SoftContext& context, CA_CelRef cel) override;
    void finishRender(const MO_SoftContext& context, CA_CelRef delivered) override;

private:
    /// The records of the object list by the object's number; of several, the last one counts.
    using ObjectRecords = std::map<int, VallorinAttributes::ObjectInformation>;
    class MergeLater;

    void takeMessage(const CEL_Cel& cel);
    int currentObjectId() const;
    void accumulate(const MO_SoftContext& context, int objectId, const UT_SharedPtr<CEL_PixmapArea>& input);
    void accumulateLater(int objectId, const UT_SharedPtr<CEL_PixmapArea>& input);
    /// Gives an object's accumulator away, without merging what waits.
    AccumulatedObject takeAccumulator(int objectId);
    /// The ports of each object, in ascending order, by the object's number.
    std::map<int, std::vector<int>> portsOfObjects() const;
    Math::Box2di coveredBy(const std::vector<int>& ports) const;
    /// Builds the volume of an object as its record says.
    ObjectVolume buildVolume(const MO_SoftContext& context, const UT_SharedPtr<CEL_PixmapArea>& reference, int objectId,
                             const std::vector<int>& ports, const ObjectRecords& records);
    void composePorts(const MO_SoftContext& context, const UT_SharedPtr<CEL_PixmapArea>& reference,
                      const ObjectRecords& records, CEL_PixmapArea& output);

    /// By object number; they belong to the accumulators, which promise what they make.
    std::map<int, std::weak_ptr<MergeLater>> waitingMerges;
};
