// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RD_KeptInputs: the drawings at the inputs of modules as pixels, kept from one render to the next. While a value of a
// module is dragged, its drawings stay as they are, and painting them takes longer than what the module does with them.
//
//     RD_KeptInputs kept(64 << 20);
//     RD_SoftRenderer::render(module, frame, parameters, {}, &kept);
//     ... change a value that no drawing depends on ...
//     RD_SoftRenderer::render(module, frame, parameters, {}, &kept); // paints no drawing
//
// An input is recognised by its place in the walk up the graph, its format, and the arguments of its rasterisation. The
// drawings themselves are not compared: the caller calls clear() when one of them may have changed.
//
// The requested rectangle often changes with the dragged value. A drawing that lies inside the rectangle it was painted
// for, touching no side of it, has the same pixels in every other rectangle around it.
#pragma once

#include "QuarvelCelCore/CEL_Cel.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <cstdint>
#include <vector>

/// Pixels of inputs, within a limit of memory. Only one render at a time may use them.
class QUARVELSCENECORE_EXPORT RD_KeptInputs
{
public:
    /// @param mostBytes the most memory for all pixels together
    explicit RD_KeptInputs(std::int64_t mostBytes) : _most(mostBytes) {}

    /// Forgets all pixels. To be called before the next render when anything changed that a drawing, its place, the
    /// requests to it or the links of the graph depend on.
    void clear();

    std::int64_t mostBytes() const { return _most; }
    std::int64_t bytes() const { return _bytes; }
    /// How many inputs were found and how many had to be painted, since construction.
    int foundCount() const { return _found; }
    int paintedCount() const { return _painted; }

    /// For the renderer: a render begins. If memory is short, inputs that the last render did not use are dropped.
    void beginRender() { ++_render; }
    /// For the renderer: the cel as pixels of the format, found or painted and kept. A cel that holds pixels already is
    /// returned unchanged.
    ///
    /// @param place the number of the input in the walk up the graph
    CA_CelRef pixelsOf(const CA_CelRef& cel, int place, int format);

private:
    struct Input
    {
        int place;
        int format;
        CELVEC_RenderArgs args;
        CA_CelRef pixels;
        std::int64_t bytes;
        int lastUse; // the number of a render
    };

    static bool isUsable(const Input& input, const CELVEC_RenderArgs& args);
    void keep(Input input);
    void makeRoom(std::int64_t needed);

    std::int64_t _most;
    std::int64_t _bytes = 0;
    int _render = 0;
    int _found = 0;
    int _painted = 0;
    std::vector<Input> _inputs;
};
