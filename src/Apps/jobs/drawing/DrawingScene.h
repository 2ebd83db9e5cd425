// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DrawingScene: the scene in which a single drawing is rendered. Every layer of the drawing becomes an element followed
// by an Object Definition. The definitions are connected to a Vallorin node, lowest layer first; the elements are also
// connected to a composite, which shows the unchanged drawing.
//
//     element 1 ──► Object Definition 1 ──┐
//     element 2 ──► Object Definition 2 ──┼──► Vallorin          (the normal map)
//     element 3 ──► Object Definition 0 ──┘                      (number 0: a cut-out)
//     elements 1, 2 ──────────────────────────► composite        (the drawing)
//
// The definition of a drawing that bends the surface is switched off, so that the node ignores it
// (shown/SurfaceLines.h).
//
// The node is made by its keyword and set through its attributes' keys, as any host does it.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "form/FormLaw.h"
#include "jobs/drawing/NormalMapSettings.h"

#include <QRectF>

#include <memory>

class MO_ElementModule;

/// A drawing in layers, prepared for a scene.
struct LayeredDrawing
{
    struct Layer
    {
        QString name;
        UT_SharedPtr<CELVEC_Kvd> drawing; ///< in the units of `frame`
        ObjectForm form = kRimForm;       ///< used if the settings do not give values
        ObjectSettings own =
            {}; ///< the values that the drawing or its folder gives; they take precedence over the form
    };

    QRectF frame;              ///< the visible rectangle, in the drawing's units
    QSizeF size;               ///< its natural size in pixels
    std::vector<Layer> layers; ///< bottom up
    CM_SharedPtr<CM_Palette> palette;
};

/// The proportions of a scene's frame.
enum class FrameShape
{
    PICTURE, ///< those of the picture, whose sides are whole pixels
    DRAWING  ///< exactly the drawing's, for scenes that are rendered in any size
};

/// A scene with a drawing's normal map and the drawing itself.
class DrawingScene
{
public:
    /// Builds the scene.
    ///
    /// @return an error if the settings name an object or a colour that the drawing does not have, or if the plug-in is
    /// not loaded
    static UT_Result<DrawingScene> build(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                         FrameShape shape = FrameShape::PICTURE);

    MO_Scene& scene() const { return *_scene; }
    /// The Vallorin node.
    MO_Module& normalMap() const { return *_normalMap; }
    /// The composite, which shows the drawing without hidden objects and cut-outs.
    MO_Module& flatDrawing() const { return *_flatDrawing; }
    /// The elements of the drawing's layers, bottom up.
    const std::vector<MO_ElementModule*>& elements() const { return _elements; }
    /// Gives the scene away; no other function may be called afterwards.
    std::unique_ptr<MO_Scene> takeScene() { return std::move(_scene); }
    /// The picture's size in pixels.
    const std::pair<int, int>& resolution() const { return _resolution; }

private:
    DrawingScene() = default;
    /// Adds everything but the layers.
    UT_Result<void> addModules(std::unique_ptr<MO_Module> node);
    /// Adds the modules of the next layer and links them.
    UT_Result<void> addLayer(const LayeredDrawing& drawing, const NormalMapSettings& settings);

    std::unique_ptr<MO_Scene> _scene;
    MO_Module* _normalMap = nullptr;
    MO_Module* _flatDrawing = nullptr;
    std::vector<MO_ElementModule*> _elements;
    unsigned _flatPorts = 0; // of flatDrawing, those with a link
    std::pair<int, int> _resolution;
};

/// The name of the Object Definition of a layer with this name.
QString definitionName(const QString& layer);

/// Whether every object is hidden or a cut-out, so that nothing of the drawing shows.
///
/// @param settings with numbered objects
bool showsNothing(const LayeredDrawing& drawing, const NormalMapSettings& settings);

/// The size of the picture: that of the settings, or the drawing's natural size; at least 1 x 1.
std::pair<int, int> pictureSize(const QSizeF& drawing, const NormalMapSettings& settings);
