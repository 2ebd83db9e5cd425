// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ViewTransform: which part of a picture a view shows, and at which scale. Picture coordinates are pixels of the full
// picture; view coordinates are those of the widget. At zoom 1 a pixel of the picture is a pixel of the screen.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <algorithm>

/// A plain value.
struct ViewTransform
{
    static constexpr double kSmallest = 1.0 / 64.0;
    static constexpr double kLargest = 64.0;

    QPointF centre;       ///< the place of the picture in the middle of the view
    double zoom = 1.0;    ///< screen pixels per pixel of the picture
    double density = 1.0; ///< screen pixels per unit of the view
    QSizeF view;          ///< the view's size

    double scale() const { return zoom / density; }
    QPointF middle() const { return {view.width() / 2.0, view.height() / 2.0}; }

    QPointF toView(const QPointF& place) const { return middle() + (place - centre) * scale(); }
    QPointF toPicture(const QPointF& place) const { return centre + (place - middle()) / scale(); }
    QRectF toView(const QRectF& rect) const { return {toView(rect.topLeft()), toView(rect.bottomRight())}; }

    /// Zooms so that the place of the picture under a point of the view stays there.
    void zoomAbout(const QPointF& fixed, double factor)
    {
        const QPointF place = toPicture(fixed);
        zoom = std::clamp(zoom * factor, kSmallest, kLargest);
        centre = place - (fixed - middle()) / scale();
    }

    /// Shows the whole picture as large as possible, with a margin around it.
    void fit(const QSizeF& picture, double margin)
    {
        if (picture.isEmpty())
            return;
        const double width = std::max(1.0, view.width() - 2.0 * margin);
        const double height = std::max(1.0, view.height() - 2.0 * margin);
        zoom = std::clamp(density * std::min(width / picture.width(), height / picture.height()), kSmallest, kLargest);
        centre = {picture.width() / 2.0, picture.height() / 2.0};
    }
};
