// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ObjectPlane: the object that each pixel of a frame shows, and how high it rises. Recorded while the drawing of the
// frame is painted, input by input. Object numbers in pictures and heights in pixels are made of it.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <QString>

#include <cstdint>
#include <map>
#include <span>
#include <vector>

/// An object of a plane.
struct PlaneObject
{
    QString node;      ///< the name of the node that it belongs to
    int number = 0;    ///< 1 or more
    double rise = 0.0; ///< the height of its highest place, in pixels; negative for what sinks in
};

/// The object of each pixel. A pixel shows the highest object that covers half of it or more; if there is none, the
/// lowest that covers it at all.
class ObjectPlane
{
public:
    /// Paints an input over those painted before.
    ///
    /// @param shape  colours with coverage (RGBA, 16 bits or float); a pixmap of another kind changes nothing
    /// @param node   the name of the node
    /// @param number of its object; 0 is a cut-out, below which no object remains where it covers half or more
    void paint(const CEL_PixmapArea& shape, const QString& node, int number);

    /// Sets the rises of the objects of a node; 0 for numbers without a rise.
    ///
    /// @param rises  by number, in any unit
    /// @param factor from that unit to pixels
    void setRises(const QString& node, const std::map<int, double>& rises, double factor);

    /// The objects that were painted, each once, in the order in which they were painted first.
    const std::vector<PlaneObject>& objects() const { return _objects; }
    /// The rectangle outside which there is no object, in the pixmaps' coordinates.
    const Math::Box2di& rect() const { return _rect; }

    /// Writes the objects of the pixels of row y from x on: an index into objects() plus 1; 0 where there is no object.
    void indicesOfRow(int y, int x, std::span<std::uint32_t> indices) const;
    /// Writes the numbers of the pixels of row y from x on; 0 where there is no object.
    void numbersOfRow(int y, int x, std::span<float> numbers) const;
    /// Writes the rises of these pixels; 0 where there is no object.
    void risesOfRow(int y, int x, std::span<float> rises) const;

private:
    template<typename Pixel>
    void take(const CEL_PixelStore<Pixel>& pixels, std::uint32_t index);
    std::uint32_t indexOf(const QString& node, int number);
    void growTo(const Math::Box2di& rect);
    std::span<std::uint32_t> row(int y);
    template<typename Value, typename ValueOf>
    void writeRow(int y, int x, std::span<Value> values, const ValueOf& valueOf) const;

    Math::Box2di _rect{0, 0, 0, 0};
    std::vector<PlaneObject> _objects;
    std::vector<std::uint32_t> _pixels; ///< an index into the objects plus 1; 0: no object
};
