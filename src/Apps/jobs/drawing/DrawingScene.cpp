// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The scene is built top down: picture, elements, objects, node.
#include "jobs/drawing/DrawingScene.h"

#include "ObjectDefinition/ObjectDefinition.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/XUGroup.h"
#include "QuarvelSceneCore/kinds/MO_CompositeModule.h"
#include "QuarvelSceneCore/kinds/MO_DisplayModule.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "jobs/drawing/ChosenForm.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/text/NameList.h"

#include <QStringList>

#include <algorithm>

namespace {

const QString kDrawingName = QStringLiteral("1");

// The values of one object. Settings for the object come first, then settings for all objects, then the drawing's own
// values, then the chosen form.
struct ObjectValues
{
    double bevel;
    double elevation;
    double smoothness;
    double level;
    bool scaleByCoverage;
    bool cutOut;
    bool hidden;
    ObjectTilt tilt;
    ObjectRim rim;
    double relief;

    // Whether it is an object with a volume.
    bool isSolid() const { return !cutOut && !hidden && relief == 0.0; }

    // What the object gets back when a person resets it.
    ObjectSettings form() const
    {
        ObjectSettings settings;
        settings.bevel = bevel;
        settings.elevation = elevation;
        settings.smoothness = smoothness;
        settings.tilt = tilt;
        settings.rim = rim;
        return settings;
    }
};

ObjectValues valuesOf(int number, const LayeredDrawing::Layer& layer, const NormalMapSettings& settings)
{
    const auto found = settings.objects.find(number);
    const ObjectSettings said =
        found == settings.objects.end() ? settings.allObjects : merged(found->second, settings.allObjects);
    const ObjectSettings own = merged(said, layer.own);
    return {own.bevel.value_or(layer.form.bevel),
            own.elevation.value_or(layer.form.elevation),
            own.smoothness.value_or(layer.form.smoothness),
            own.level.value_or(1.0),
            own.scaleByCoverage.value_or(false),
            own.cutOut.value_or(false),
            own.hidden.value_or(false),
            own.tilt.value_or(ObjectTilt()),
            own.rim.value_or(ObjectRim{0.0, ObjectDefinition::kRimHeight}),
            own.relief.value_or(0.0)};
}

std::vector<NormalMapObject> objectTable(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    std::vector<NormalMapObject> objects;
    for (int number = 1; number <= static_cast<int>(drawing.layers.size()); ++number) {
        const LayeredDrawing::Layer& layer = drawing.layers[static_cast<std::size_t>(number) - 1];
        const ObjectValues values = valuesOf(number, layer, settings);
        if (values.isSolid())
            objects.push_back({number, values.bevel, values.elevation, values.smoothness});
    }
    return objects;
}

QColor colourOf(const CM_BaseColorObj& color)
{
    const CM_Rgba& c = color.GetNominalColor();
    return {c.red, c.green, c.blue};
}

int levelOf(const CM_BaseColorObj& color, const NormalMapSettings& settings)
{
    int level = settings.levelOfAllColours;
    for (const ColourLevel& set : settings.levels)
        if (set.colour.rgb() == colourOf(color).rgb())
            level = set.level;
    return level;
}

std::vector<NormalMapColour> colourTable(const CM_Palette& palette, const NormalMapSettings& settings)
{
    std::vector<NormalMapColour> colours;
    for (const auto& color : palette.colors())
        colours.push_back({color->GetColorId(), levelOf(*color, settings), color->GetColorName().ToQString()});
    return colours;
}

UT_Result<void> checkObjects(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    const auto count = static_cast<int>(drawing.layers.size());
    const auto beyond = settings.objects.upper_bound(count);
    if (beyond == settings.objects.end())
        return {};
    QStringList names;
    for (const LayeredDrawing::Layer& layer : drawing.layers)
        names.append(QStringLiteral("%1 %2").arg(names.size() + 1).arg(layer.name));
    return noSuchObject(QString::number(beyond->first), names);
}

UT_Result<void> checkColours(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    for (const ColourLevel& set : settings.levels) {
        const auto& colors = drawing.palette->colors();
        const auto isSet = [&](const auto& color) { return colourOf(*color).rgb() == set.colour.rgb(); };
        if (std::ranges::any_of(colors, isSet))
            continue;
        QStringList known;
        for (const auto& color : colors)
            known.append(colourOf(*color).name());
        return UT_Error{QStringLiteral("the drawing has no colour %1; its colours are %2")
                            .arg(set.colour.name(), namesForPeople(known))};
    }
    return {};
}

UT_Result<void> check(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    if (UT_Result<void> checked = checkObjects(drawing, settings); !checked)
        return checked;
    if (UT_Result<void> checked = checkColours(drawing, settings); !checked)
        return checked;
    if (drawing.layers.size() > MO_Node::kMaxPorts)
        return UT_Error{QStringLiteral("these are %1 objects and a scene has room for %2; join layers in the drawing, "
                                       "or let \"auto\" choose them")
                            .arg(drawing.layers.size())
                            .arg(MO_Node::kMaxPorts)};
    return {};
}

NormalMapValues valuesOf(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    return {.objects = objectTable(drawing, settings),
            .colours = colourTable(*drawing.palette, settings),
            .bevelMultiplier = settings.blurScale,
            .elevationMultiplier = settings.elevationScale,
            .smoothnessMultiplier = settings.elevationSmoothness,
            .quality = settings.normalQuality,
            .generateNormals = settings.generateNormals,
            .depthInBlue = settings.depthInBlue,
            .clipBlurredWithGeometry = settings.clipBlurredWithGeometry,
            .useTruckFactor = settings.useTruckFactor};
}

// Every scene that is built can be copied and saved: an object is an element and an Object Definition, and a few
// modules are for all objects.
static_assert(XUGroup::kMaxModulesInFile > 2 * MO_Node::kMaxPorts + 10);

UT_Result<std::unique_ptr<MO_Module>> nodeFor(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    std::unique_ptr<MO_Module> node = NormalMapNode::make();
    if (!node)
        return UT_Error{QStringLiteral("the plug-in %1 is not loaded").arg(NormalMapNode::keyword())};
    if (UT_Result<void> done = NormalMapNode(*node).set(valuesOf(drawing, settings)); !done)
        return done.error();
    return node;
}

// Fits the drawing's frame into the picture's, centred, with the same scale for both axes.
void place(MO_ElementModule& element, const QRectF& frame, double sceneHeight)
{
    const double scale = std::min(MO_SceneCommon::kFrameWidth / frame.width(), sceneHeight / frame.height());
    element.scaleX()->setLocalValue(scale);
    element.scaleY()->setLocalValue(scale);
    element.positionX()->setLocalValue(-scale * frame.center().x());
    element.positionY()->setLocalValue(-scale * frame.center().y());
}

MO_ElementModule& addElement(MO_Scene& scene, const LayeredDrawing::Layer& layer)
{
    auto& element = scene.root().emplace<MO_ElementModule>();
    element.setInstanceName(layer.name);
    element.setDrawing(kDrawingName, layer.drawing);
    element.drawingAttr()->setElementName(layer.name);
    AT_ExposureSheet exposures;
    exposures.setExposure(scene.firstFrame(), kDrawingName);
    element.drawingAttr()->setExposures(exposures);
    return element;
}

ObjectDefinition& addDefinition(MO_Scene& scene, const QString& layerName, int number, const ObjectValues& values)
{
    auto& definition = scene.root().emplace<ObjectDefinition>();
    definition.setInstanceName(definitionName(layerName));
    definition.objectNumber()->setLocalValue(values.cutOut ? 0 : number);
    definition.objectLevel()->setLocalValue(values.level);
    definition.scaleByCoverage()->setLocalValue(values.scaleByCoverage);
    definition.objectEnabled()->setLocalValue(!values.hidden && values.relief == 0.0);
    definition.relief()->setLocalValue(values.hidden ? 0.0 : values.relief);
    definition.tiltX()->setLocalValue(values.tilt.x);
    definition.tiltY()->setLocalValue(values.tilt.y);
    definition.rimBevel()->setLocalValue(values.rim.bevel);
    definition.rimHeight()->setLocalValue(values.rim.height);
    definition.setChosenForm(chosenFormText(values.form()));
    return definition;
}

double frameHeight(const QSizeF& drawing, const std::pair<int, int>& resolution, FrameShape shape)
{
    const bool isExact = shape == FrameShape::DRAWING && drawing.width() > 0.0 && drawing.height() > 0.0;
    const double proportion =
        isExact ? drawing.height() / drawing.width() : static_cast<double>(resolution.second) / resolution.first;
    return MO_SceneCommon::kFrameWidth * proportion;
}

} // namespace

bool showsNothing(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    return objectTable(drawing, settings).empty();
}

QString definitionName(const QString& layer)
{
    return layer + QStringLiteral("-Definition");
}

std::pair<int, int> pictureSize(const QSizeF& drawing, const NormalMapSettings& settings)
{
    if (!settings.size)
        return {MO_Scene::wholePixels(drawing.width()), MO_Scene::wholePixels(drawing.height())};
    const int width = settings.size->width();
    const int height = settings.size->height();
    return {width, height > 0 ? height : MO_Scene::wholePixels(width * drawing.height() / drawing.width())};
}

UT_Result<DrawingScene> DrawingScene::build(const LayeredDrawing& drawing, const NormalMapSettings& settings,
                                            FrameShape shape)
{
    if (UT_Result<void> checked = check(drawing, settings); !checked)
        return checked.error();
    UT_Result<std::unique_ptr<MO_Module>> node = nodeFor(drawing, settings);
    if (!node)
        return node.error();
    DrawingScene built;
    built._resolution = pictureSize(drawing.size, settings);
    built._scene = std::make_unique<MO_Scene>();
    built._scene->setFrameHeight(frameHeight(drawing.size, built._resolution, shape));
    built._scene->truckFactorAttr().setLocalValue(settings.truck);
    built._scene->addPalette(drawing.palette);
    if (UT_Result<void> added = built.addModules(std::move(*node)); !added)
        return added.error();
    while (built._elements.size() < drawing.layers.size())
        if (UT_Result<void> added = built.addLayer(drawing, settings); !added)
            return added.error();
    return built;
}

// Called before the layers are added, so that no layer can have taken one of these names.
UT_Result<void> DrawingScene::addModules(std::unique_ptr<MO_Module> node)
{
    auto& composite = _scene->root().emplace<MO_CompositeModule>();
    composite.setCompositeOrder(MO_CompositeType::PORT_ORDER);
    _flatDrawing = &composite;
    _normalMap = &_scene->root().add(std::move(node));
    auto& display = _scene->root().emplace<MO_DisplayModule>();
    composite.setInstanceName(QStringLiteral("Drawing"));
    _normalMap->setInstanceName(QStringLiteral("Normal-Map"));
    display.setInstanceName(QStringLiteral("Display"));
    return MO_Scene::connect(*_normalMap, display);
}

UT_Result<void> DrawingScene::addLayer(const LayeredDrawing& drawing, const NormalMapSettings& settings)
{
    const auto index = static_cast<unsigned>(_elements.size());
    const LayeredDrawing::Layer& layer = drawing.layers[index];
    const auto number = static_cast<int>(index) + 1;
    const ObjectValues values = valuesOf(number, layer, settings);
    MO_ElementModule& element = addElement(*_scene, layer);
    _elements.push_back(&element);
    place(element, drawing.frame, _scene->frameHeight());
    ObjectDefinition& definition = addDefinition(*_scene, layer.name, number, values);
    if (UT_Result<void> linked = MO_Scene::connect(element, definition); !linked)
        return linked;
    if (UT_Result<void> linked = MO_Scene::connect(definition, *_normalMap, index); !linked)
        return linked;
    return values.isSolid() ? MO_Scene::connect(element, *_flatDrawing, _flatPorts++) : UT_Result<void>();
}
