// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Pixmaps: pictures that store only a rectangle of their pixels.
//
// A pixmap belongs to a picture of a given size whose canvas is a rectangle of pixels (half-open, x right, y down). It
// stores the pixels of its allocated rectangle, which may lie anywhere, inside the canvas or outside. A pixel outside
// the allocated rectangle is missing: find() returns null for it, and no reader makes up a value.
//
// The pixels may be deferred: then the rectangle is known, and they are made when a pixel is first asked for.
//
// Thread rule: any number of threads may read a pixmap, or write disjoint rows of it; changing its rectangle needs
// exclusive access.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/Math_Size2di.h"
#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelCelCore/CEL_DeferredPixels.h"
#include "QuarvelCelCore/CEL_Pixels.h"
#include "QuarvelCelCore/CEL_Representation.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>

/// A pixmap of any format.
class QUARVELCELCORE_EXPORT CEL_PixmapArea : public CEL_Representation
{
public:
    ~CEL_PixmapArea() override;

    virtual CEL_Format format() const = 0;
    /// The picture's width and height in pixels.
    const Math::Size2di& size() const { return _size; }
    /// The picture's rectangle.
    const Math::Box2di& canvasRect() const { return _canvas; }
    /// The rectangle of the stored pixels; empty when there are none.
    const Math::Box2di& allocatedRect() const { return _allocated; }

    /// A copy with its own pixels.
    virtual UT_SharedPtr<CEL_PixmapArea> clone() const = 0;

    /// Makes rect the allocated rectangle. Pixels in both the old and the new rectangle keep their values.
    ///
    /// @param clear true: new pixels are zero in all channels; false: they are uninitialised, and the caller must write
    /// them
    virtual void realloc(const Math::Box2di& rect, bool clear) = 0;

    /// Grows the allocated rectangle to the union of both pixmaps' rectangles; new pixels are zero.
    void reallocToFit(const CEL_PixmapArea& other);

    /// The union of both pixmaps' rectangles, clipped to this pixmap's canvas.
    Math::Box2di unitedInCanvas(const CEL_PixmapArea& other) const;

    /// Makes unitedInCanvas() the allocated rectangle; clear as in realloc().
    void reallocToFitAndClipToCanvas(const CEL_PixmapArea& other, bool clear);

    /// Drops the pixels outside the canvas.
    void clipToCanvas();

    /// Gives an empty pixmap a rectangle of pixels that are made when one of them is first asked for.
    ///
    /// @param make returns a pixmap of this class with this allocated rectangle, which nobody else holds
    virtual void defer(const Math::Box2di& rect, CEL_DeferredPixels::Make make) = 0;

    /// Whether the pixels are deferred and have not been made.
    virtual bool isDeferred() const = 0;

    /// Makes deferred pixels now, before what they are made of changes.
    virtual void makePixels() const = 0;

protected:
    CEL_PixmapArea(const Math::Size2di& size, const Math::Box2di& canvas) : _size(size), _canvas(canvas) {}
    CEL_PixmapArea(const CEL_PixmapArea&) = default;

    void setAllocatedRect(const Math::Box2di& rect) { _allocated = rect; }

private:
    Math::Size2di _size;
    Math::Box2di _canvas;
    Math::Box2di _allocated;
};

/// The storage shared by all pixmaps of one pixel type. The first row of new memory is aligned to 64 bytes. Where a
/// pixmap loses less than half of its pixels, the others stay where they are, so rows may have gaps between them.
template<typename Pixel>
class CEL_PixelStore : public CEL_PixmapArea
{
public:
    using PixelType = Pixel;

    /// The pixels of row y, from allocatedRect().x1 on; y must be inside the allocated rectangle.
    std::span<Pixel> row(int y) { return {rowStart(y), static_cast<std::size_t>(allocatedRect().width())}; }
    std::span<const Pixel> row(int y) const { return {rowStart(y), static_cast<std::size_t>(allocatedRect().width())}; }

    /// The pixel (x, y), or null when it is missing.
    Pixel* find(int x, int y)
    {
        return allocatedRect().contains(x, y) ? rowStart(y) + (x - allocatedRect().x1) : nullptr;
    }
    const Pixel* find(int x, int y) const
    {
        return allocatedRect().contains(x, y) ? rowStart(y) + (x - allocatedRect().x1) : nullptr;
    }

    /// The pixel (x, y), which must exist.
    Pixel& at(int x, int y)
    {
        assert(allocatedRect().contains(x, y));
        return rowStart(y)[x - allocatedRect().x1];
    }
    const Pixel& at(int x, int y) const
    {
        assert(allocatedRect().contains(x, y));
        return rowStart(y)[x - allocatedRect().x1];
    }

    void realloc(const Math::Box2di& rect, bool clear) override
    {
        if (rect == allocatedRect())
            return;
        makePixels();
        _deferred = nullptr;
        if (isLargePart(rect)) {
            setAllocatedRect(rect);
            return;
        }
        const Math::Box2di kept = rect.getIntersection(allocatedRect());
        Pixels pixels = allocate(rect);
        if (clear && !(kept == rect))
            std::fill_n(pixels.get(), rect.area(), Pixel{});
        for (int y = kept.y1; y < kept.y2 && kept.x1 < kept.x2; ++y)
            std::copy_n(rowStart(y) + (kept.x1 - allocatedRect().x1), kept.width(),
                        pixels.get() + offsetIn(rect, kept.x1, y));
        setPixels(std::move(pixels), rect);
    }

    void defer(const Math::Box2di& rect, CEL_DeferredPixels::Make make) override
    {
        setPixels(nullptr, rect);
        _deferred = rect.isEmpty() ? nullptr : std::make_unique<CEL_DeferredPixels>(std::move(make));
    }

    bool isDeferred() const override { return _deferred && !_deferred->areMade(); }

    void makePixels() const override
    {
        if (isDeferred())
            _deferred->make([this](CEL_PixmapArea& made) {
                made.makePixels();
                assert(made.format() == format() && made.allocatedRect() == allocatedRect());
                auto& store = static_cast<CEL_PixelStore&>(made);
                _pixels = std::move(store._pixels);
                _inMemory = store._inMemory;
            });
    }

protected:
    CEL_PixelStore(const Math::Size2di& size, const Math::Box2di& canvas) : CEL_PixmapArea(size, canvas) {}
    CEL_PixelStore(const CEL_PixelStore& other)
        : CEL_PixmapArea(other), _pixels(allocate(other.allocatedRect())), _inMemory(other.allocatedRect())
    {
        other.makePixels();
        for (int y = allocatedRect().y1; y < allocatedRect().y2; ++y)
            std::ranges::copy(other.row(y), rowStart(y));
    }

private:
    struct Deleter
    {
        std::size_t bytes = 0;

        void operator()(Pixel* pixels) const { UT_PixelMemory::give(pixels, bytes); }
    };
    using Pixels = std::unique_ptr<Pixel[], Deleter>;

    static Pixels allocate(const Math::Box2di& rect)
    {
        static_assert(std::is_trivially_copyable_v<Pixel> && std::is_trivially_destructible_v<Pixel>);
        const auto bytes = static_cast<std::size_t>(rect.area()) * sizeof(Pixel);
        return Pixels(bytes == 0 ? nullptr : static_cast<Pixel*>(UT_PixelMemory::take(bytes)), Deleter{bytes});
    }

    // Whether a rectangle lies in the allocated one and takes half of the memory or more, so that its pixels may remain
    // there.
    bool isLargePart(const Math::Box2di& rect) const
    {
        return !rect.isEmpty() && allocatedRect().contains(rect) && 2 * rect.area() >= _inMemory.area();
    }

    void setPixels(Pixels pixels, const Math::Box2di& rect)
    {
        _pixels = std::move(pixels);
        _inMemory = rect;
        setAllocatedRect(rect);
    }

    static std::ptrdiff_t offsetIn(const Math::Box2di& rect, int x, int y)
    {
        return std::ptrdiff_t{y - rect.y1} * rect.width() + (x - rect.x1);
    }

    Pixel* rowStart(int y)
    {
        if (_deferred)
            makePixels();
        assert(y >= allocatedRect().y1 && y < allocatedRect().y2);
        return _pixels.get() + offsetIn(_inMemory, allocatedRect().x1, y);
    }
    const Pixel* rowStart(int y) const
    {
        if (_deferred)
            makePixels();
        assert(y >= allocatedRect().y1 && y < allocatedRect().y2);
        return _pixels.get() + offsetIn(_inMemory, allocatedRect().x1, y);
    }

    // Mutable because the first reader of deferred pixels makes them.
    mutable Pixels _pixels;
    mutable Math::Box2di _inMemory; // the rectangle of _pixels; the allocated one is a part of it
    std::unique_ptr<CEL_DeferredPixels> _deferred;
};

/// A pixmap of four signed 16-bit channels.
class QUARVELCELCORE_EXPORT CEL_PixmapAreaRGBA16 final : public CEL_PixelStore<CEL_PixelRGBA16>
{
public:
    CEL_PixmapAreaRGBA16(const Math::Size2di& size, const Math::Box2di& canvas);
    ~CEL_PixmapAreaRGBA16() override;

    CEL_Format format() const override { return CEL_FORMAT_RGBA16; }
    UT_SharedPtr<CEL_PixmapArea> clone() const override;
};

/// A pixmap of four float channels.
class QUARVELCELCORE_EXPORT CEL_PixmapAreaRGBAFloat final : public CEL_PixelStore<CEL_PixelRGBAFloat>
{
public:
    CEL_PixmapAreaRGBAFloat(const Math::Size2di& size, const Math::Box2di& canvas);
    ~CEL_PixmapAreaRGBAFloat() override;

    CEL_Format format() const override { return CEL_FORMAT_RGBAFLOAT; }
    UT_SharedPtr<CEL_PixmapArea> clone() const override;
};

/// A depth pixmap. A new pixel is black: there is no surface.
class QUARVELCELCORE_EXPORT CEL_PixmapAreaZ final : public CEL_PixelStore<CEL_PixelFloat>
{
public:
    CEL_PixmapAreaZ(const Math::Size2di& size, const Math::Box2di& canvas);
    ~CEL_PixmapAreaZ() override;

    CEL_Format format() const override { return CEL_FORMAT_Z; }
    UT_SharedPtr<CEL_PixmapArea> clone() const override;

    /// States the depths between which the pixels lie, for display; the pixels themselves are unchanged.
    void setZRange(double low, double high)
    {
        _low = low;
        _high = high;
    }
    double zRangeLow() const { return _low; }
    double zRangeHigh() const { return _high; }

private:
    double _low = 0.0;
    double _high = 0.0;
};

/// The pixmap class of a colour pixel: CEL_PixmapOf<CEL_PixelRGBA16> is CEL_PixmapAreaRGBA16.
template<typename Pixel>
using CEL_PixmapOf =
    std::conditional_t<std::is_same_v<Pixel, CEL_PixelRGBA16>, CEL_PixmapAreaRGBA16, CEL_PixmapAreaRGBAFloat>;
