// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Animations: the reader has found the drawings and when they are shown; the first frame is number 1.
#include "jobs/import/ImportKinds.h"
#include "jobs/import/SequenceBuilder.h"

namespace {

constexpr int kFirstFrame = 1;

// All layers as one: a drawing for each different set of what the layers show.
DIO_AnimatedLayer mergedLayers(const DIO_Animation& animation)
{
    DIO_AnimatedLayer merged;
    merged.name = animation.name;
    std::map<std::vector<int>, int> known;
    for (std::size_t frame = 0; frame < static_cast<std::size_t>(animation.frames); ++frame) {
        std::vector<int> shown;
        std::vector<DIO_Shape> shapes;
        for (const DIO_AnimatedLayer& layer : animation.layers) {
            shown.push_back(layer.shown[frame]);
            if (shown.back() < 0)
                continue;
            const auto& own = layer.drawings[static_cast<std::size_t>(shown.back())];
            shapes.insert(shapes.end(), own.begin(), own.end());
        }
        auto found = known.find(shown);
        if (found == known.end()) {
            const int index = shapes.empty() ? -1 : static_cast<int>(merged.drawings.size());
            if (!shapes.empty())
                merged.drawings.push_back(std::move(shapes));
            found = known.emplace(std::move(shown), index).first;
        }
        merged.shown.push_back(found->second);
    }
    return merged;
}

} // namespace

UT_Result<DrawingSequence> readAnimation(const QStringList& files, const ImportSettings& settings)
{
    const QString& file = files.first();
    DIO_LottieLimits limits = settings.lottie;
    limits.goOn = settings.goOn;
    UT_Result<DIO_Animation> animation = DIO_readLottie(file, limits);
    if (!animation)
        return animation.error();
    return sequenceOf(std::move(*animation), file, settings);
}

UT_Result<DrawingSequence> sequenceOf(DIO_Animation animation, const QString& file, const ImportSettings& settings)
{
    if (settings.form.objects == ObjectChoice::ONE)
        animation.layers = {mergedLayers(animation)};
    // All of the file is read.
    const auto goesOn = [&] { return !settings.goOn || settings.goOn(1.0); };
    SequenceBuilder builder(animation.name);
    for (const DIO_AnimatedLayer& layer : animation.layers)
        if (!builder.addLayer(layer.name, layer.drawings, animation.palette, layer.shown, kFirstFrame, goesOn))
            return UT_stopped();
    DrawingSequence sequence = builder.take();
    sequence.frame = animation.viewBox;
    sequence.size = animation.size;
    sequence.firstFrame = kFirstFrame;
    sequence.lastFrame = animation.frames;
    sequence.frameRate = animation.frameRate;
    for (const QString& warning : animation.warnings)
        sequence.warnings.append(file + QStringLiteral(": ") + warning);
    const ObjectChoice objects = settings.form.objects;
    if (objects == ObjectChoice::GROUPS || objects == ObjectChoice::SHAPES)
        sequence.warnings.append(
            file +
            QStringLiteral(": its layers are its objects; groups and shapes are chosen in single drawings alone"));
    return sequence;
}
