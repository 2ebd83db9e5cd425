// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_LottiePainter: turns the layers that an animation shows at a frame into areas. Lines become outlines, layers
// within layers are flattened; clips, masks and mattes become clips and opacities of the areas.
#pragma once

#include "QuarvelDrawingIO/DIO_Animation.h"
#include "QuarvelDrawingIO/private/DIO_CoverageLevels.h"
#include "QuarvelDrawingIO/private/DIO_LottieRecords.h"
#include "QuarvelDrawingIO/private/DIO_StrokeOutliner.h"

#include <QHash>

/// One painter serves all frames of one animation.
class DIO_LottiePainter
{
public:
    /// @param palette gets the paints
    explicit DIO_LottiePainter(std::vector<DIO_Paint>& palette) : _palette(palette) {}

    /// What a layer paints.
    ///
    /// @param matte the layer that cuts it, by its coverage or by its brightness, and is not painted itself; null: none
    std::vector<DIO_Shape> paint(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte);

    /// How often something was too detailed to be cut, and stayed whole.
    int tooDetailed() const { return _tooDetailed; }

private:
    using Shapes = std::vector<DIO_Shape>;

    Shapes paintMatted(const DIO_LottieLayer& layer, const DIO_LottieLayer* matte);
    Shapes paintLayer(const DIO_LottieLayer& layer);
    std::optional<DIO_Shape> paintNode(const DIO_LottieNode& node);
    void cut(Shapes& shapes, const DIO_CoverageLevels& levels);
    int paintIndex(const DIO_Paint& paint);

    std::vector<DIO_Paint>& _palette;
    QHash<QString, int> _indexOf;
    DIO_StrokeOutliner _outliner;
    DIO_PathWork _work; ///< for the layer that is painted
    int _tooDetailed = 0;
};

/// Calls function(index, layer, matte) for every layer that is painted itself, bottom up: a layer with a matte is cut
/// by the one above it, which is then not painted.
template<typename Function>
void DIO_forEachPainted(const std::vector<DIO_LottieLayer>& layers, const Function& function)
{
    constexpr auto kNone = static_cast<std::size_t>(-1);
    std::size_t matted = kNone;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        if (layers[i].matte != DIO_LottieStream::NO_MATTE) {
            matted = i;
            continue;
        }
        if (matted != kNone)
            function(matted, layers[matted], &layers[i]);
        else
            function(i, layers[i], static_cast<const DIO_LottieLayer*>(nullptr));
        matted = kNone;
    }
}
