// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition: every input port, in ascending order, adds its object's result to the output where its input has
// coverage.
//
// A pixel of the output depends only on the inputs and results at that pixel, and they are combined in one fixed order,
// so the distribution of rows over threads does not matter.
#pragma once

#include "render/ColumnSpan.h"
#include "render/StreamKernels.h"
#include "render/VallorinRenderHandler.h"

#include <tbb/blocked_range.h>

#include <optional>
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
    ///
    /// @param written of each row of the output, from its top on: the columns that have been written, counted from its
    /// left; must outlive this object
    /// @param zeros the output's pixels from this address on are zeros until they are written, the others
    /// uninitialised; null: all are uninitialised
    BasicAccumFunctor(const VallorinRenderHandler& handler, Pixmap& output, const PixmapMap& inputs,
                      const PixmapMap& results, std::span<ColumnSpan> written, const void* zeros = nullptr);

    /// Adds the ports to the rows of the range, and to the columns that have been written in them.
    void operator()(const tbb::blocked_range<int>& rows) const;

private:
    struct PortRow;
    class WrittenColumns;

    void findPorts(int y, std::vector<PortRow>& ports) const;
    ColumnSpan composeRow(int y, const std::vector<PortRow>& ports, const ColumnSpan& columns) const;
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
    std::span<ColumnSpan> _written;
    const void* _zeros;
};

/// Composes an output port by port, in ascending order, so that the result of an object is needed only while its ports
/// are added.
class PortComposition
{
public:
    /// @param output without pixels
    /// @param room   where the results are expected to lie: the output gets memory for all of it at once
    /// @param shown  the output gets no pixels elsewhere; without a value, it gets all
    PortComposition(const VallorinRenderHandler& handler, CEL_PixmapArea& output, const Math::Box2di& room,
                    const std::optional<Math::Box2di>& shown = {});

    /// Makes the rectangle of an object's whole result part of the output's.
    void include(const Math::Box2di& rect);

    /// Adds a port, rows in parallel. What lies outside the rectangles that were included is left out.
    ///
    /// @param result none for a cut-out
    void add(int port, const UT_SharedPtr<CEL_PixmapArea>& input, const UT_SharedPtr<CEL_PixmapArea>& result);

    /// Clears what no port has written, and cuts the output to the rectangles that were included, as far as it is
    /// shown.
    void finish();

private:
    Math::Box2di shownPartOf(const Math::Box2di& rect) const;

    const VallorinRenderHandler& _handler;
    CEL_PixmapArea& _output;
    Math::Box2di _room;
    std::optional<Math::Box2di> _shown;
    Math::Box2di _rect;
    std::vector<ColumnSpan> _written; // of each row of the output
    const void* _zeros = nullptr;     // from here on, what has not been written is zero; null: it is so nowhere
};
