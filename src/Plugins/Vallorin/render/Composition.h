// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition: every input port, in ascending order, adds its object's result to the output where its input has
// coverage.
//
// A pixel of the output depends only on the inputs and results at that pixel, and they are combined in one fixed order,
// so the distribution of rows over threads does not matter.
#pragma once

#include "render/StreamKernels.h"
#include "render/VallorinRenderHandler.h"

#include <tbb/blocked_range.h>

#include <span>
#include <vector>

/// What one range of output rows needs. Ranges write disjoint rows and read data that nobody changes meanwhile.
template<typename Pixel>
class VallorinRenderHandler::BasicAccumFunctor
{
public:
    using Pixmap = CEL_PixmapOf<Pixel>;
    using TypedMap = std::map<int, UT_SharedPtr<Pixmap>>;

    /// Inputs and results in another format than the output's count as absent.
    BasicAccumFunctor(const VallorinRenderHandler& handler, Pixmap& output, const PixmapMap& inputs,
                      const PixmapMap& results);

    /// Composes the rows of the range; their earlier content is overwritten.
    void operator()(const tbb::blocked_range<int>& rows) const;

private:
    struct PortRow;
    class WrittenColumns;

    void findPorts(int y, std::vector<PortRow>& ports) const;
    void composeRow(int y, const std::vector<PortRow>& ports) const;
    void compose(const PortRow& port, WrittenColumns& written) const;
    void composeNormals(const PortRow& port, WrittenColumns& written) const;
    void cutOut(const PortRow& port, const WrittenColumns& written) const;
    void raise(const PortRow& port, std::span<Pixel> output) const;

    const VallorinRenderHandler& _handler;
    int _x1;
    int _x2;
    Pixmap& _output;
    VolumeRowKernels::Stores _stores;
    TypedMap _inputs;
    TypedMap _results;
    const std::vector<int>* _portIds;
    bool _generateNormals;
    bool _depthInBlue;
};

/// Composes the whole output, rows in parallel; its earlier content is overwritten.
void composeOutput(const VallorinRenderHandler& handler, CEL_PixmapArea& output,
                   const VallorinRenderHandler::PixmapMap& inputs, const VallorinRenderHandler::PixmapMap& results);
