// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingScene: the scene that a single drawing is rendered in. Every layer of the drawing becomes an element with an
// Object Definition behind it; the definitions go into a Vallorin node, lowest layer first, and the elements also into
// a composite, which shows the drawing as it is.
//
//     element 1 ──► Object Definition 1 ──┐
//     element 2 ──► Object Definition 2 ──┼──► Vallorin          (the normal map)
//     element 3 ──► Object Definition 0 ──┘                      (number 0: a cut-out)
//     elements 1, 2 ──────────────────────────► composite        (the drawing)
//
// The node is made by its keyword and set through its attributes' keys: the program knows the module as any host does.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "form/FormLaw.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QRectF>

#include <memory>

class MO_ElementModule;

/// A drawing in layers, ready for a scene.
struct LayeredDrawing
{
    struct Layer
    {
        QString name;
        UT_SharedPtr<CELVEC_Kvd> drawing; ///< in the units of the frame below
        ObjectForm form = kRimForm;       ///< holds where the settings say nothing of the object
        ObjectSettings own = {};          ///< what the drawing or its folder says; holds before the form
    };

    QRectF frame;              ///< what the picture shows, in the drawing's units
    QSizeF size;               ///< its natural size in pixels
    std::vector<Layer> layers; ///< bottom up
    CM_SharedPtr<CM_Palette> palette;
};

/// A scene with a drawing's normal map and the drawing itself.
class DrawingScene
{
public:
    /// Builds the scene.
    ///
    /// @return an error when the settings speak of an object or a colour that the drawing does not have, or when the
    /// plug-in is
    ///         not loaded
    static UT_Result<DrawingScene> build(const LayeredDrawing& drawing, const NormalMapSettings& settings);

    MO_Scene& scene() const { return *_scene; }
    /// The Vallorin node.
    MO_Module& normalMap() const { return *_normalMap; }
    /// What shows the drawing as it is, without the objects that cut or are hidden.
    MO_Module& flatDrawing() const { return *_flatDrawing; }
    /// The elements of the drawing's layers, bottom up.
    const std::vector<MO_ElementModule*>& elements() const { return _elements; }
    /// Hands out the scene; nothing else is to be asked for afterwards.
    std::unique_ptr<MO_Scene> takeScene() { return std::move(_scene); }
    /// The picture's size in pixels.
    const std::pair<int, int>& resolution() const { return _resolution; }

private:
    DrawingScene() = default;

    std::unique_ptr<MO_Scene> _scene;
    MO_Module* _normalMap = nullptr;
    MO_Module* _flatDrawing = nullptr;
    std::vector<MO_ElementModule*> _elements;
    std::pair<int, int> _resolution;
};

/// The size of the picture that the settings ask for: theirs, or the drawing's natural one; at least 1 x 1.
std::pair<int, int> pictureSize(const QSizeF& drawing, const NormalMapSettings& settings);
