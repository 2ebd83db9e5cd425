// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// An import names and identifies a colour by what it looks like, so whether a person changed it shows in the colour.
#include "jobs/import/UpdateColours.h"

#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"
#include "jobs/import/SceneElements.h"
#include "jobs/shown/NormalMapNode.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using PalettePtr = CM_SharedPtr<CM_Palette>;
using Colours = std::set<CM_ColorId_t>;

std::vector<MO_Module*> normalMapNodes(const MO_Scene& scene)
{
    std::vector<MO_Module*> nodes;
    scene.root().forEachModule([&](MO_Module& module) {
        if (NormalMapNode::is(module))
            nodes.push_back(&module);
    });
    return nodes;
}

bool isAsDrawn(const CM_BaseColorObj& colour)
{
    const CM_Rgba value = colour.GetNominalColor();
    DIO_Paint paint{.colour = QColor(value.red, value.green, value.blue), .name = colour.GetColorName().ToQString()};
    using Kind = DIO_Paint::Kind;
    return std::ranges::any_of(std::array{Kind::SOLID, Kind::GRADIENT, Kind::PICTURE, Kind::PATTERN}, [&](Kind kind) {
        paint.kind = kind;
        const bool isNamed = kind != Kind::SOLID || paint.name == paint.colour.name();
        return isNamed && DIO_colorId(paint) == colour.GetColorId();
    });
}

// Colours that a person gave a level.
Colours coloursWithLevels(const std::vector<MO_Module*>& nodes)
{
    Colours set;
    for (MO_Module* const node : nodes)
        for (const NormalMapColour& row : NormalMapNode(*node).colours())
            if (row.level != NormalMapColour().level)
                set.insert(row.id);
    return set;
}

std::unique_ptr<CO_Command> withoutRowsCmd(MO_Module& node, const Colours& dropped)
{
    std::vector<NormalMapColour> rows = NormalMapNode(node).colours();
    std::erase_if(rows, [&](const NormalMapColour& row) { return dropped.contains(row.id); });
    return NormalMapNode(node).coloursCmd(rows);
}

std::unique_ptr<CO_Command> dropCmd(MO_Scene& scene, const Colours& painted)
{
    const Colours used = coloursPaintedBy(allElements(scene));
    const std::vector<MO_Module*> nodes = normalMapNodes(scene);
    const Colours levels = coloursWithLevels(nodes);
    Colours dropped;
    std::vector<StepsCommand::Step> steps;
    for (const PalettePtr& palette : scene.palettes()) {
        auto left = UT_makeShared<CM_Palette>(palette->GetName(), palette->GetId());
        for (const auto& colour : palette->colors()) {
            const CM_ColorId_t& id = colour->GetColorId();
            if (painted.contains(id) && !used.contains(id) && !levels.contains(id) && isAsDrawn(*colour))
                dropped.insert(id);
            else
                left->addColor(colour);
        }
        if (left->colors().size() != palette->colors().size())
            steps.emplace_back([&scene, palette, left] { return MO_replacePaletteCmd(scene, palette, left); });
    }
    if (steps.empty())
        return nullptr;
    for (MO_Module* const node : nodes)
        steps.emplace_back([node, dropped] { return withoutRowsCmd(*node, dropped); });
    return std::make_unique<StepsCommand>(QString(), std::move(steps));
}

} // namespace

std::set<CM_ColorId_t> coloursPaintedBy(const std::vector<MO_ElementModule*>& elements)
{
    Colours painted;
    for (const MO_ElementModule* const element : elements)
        for (const auto& [name, drawing] : element->drawings())
            for (const GR_Art art : kGR_allArts)
                for (const CELVEC_Shape& shape : drawing->shapes(art))
                    painted.insert(shape.color);
    return painted;
}

StepsCommand::Step listColours(MO_Module& node, const std::set<CM_ColorId_t>& colours, const MO_Scene& fresh)
{
    std::vector<NormalMapColour> listed;
    for (MO_Module* const one : normalMapNodes(fresh))
        std::ranges::copy_if(NormalMapNode(*one).colours(), std::back_inserter(listed),
                             [&](const NormalMapColour& row) { return colours.contains(row.id); });
    return [&node, listed]() -> std::unique_ptr<CO_Command> {
        std::vector<NormalMapColour> rows = NormalMapNode(node).colours();
        Colours known;
        for (const NormalMapColour& row : rows)
            known.insert(row.id);
        std::ranges::copy_if(listed, std::back_inserter(rows),
                             [&](const NormalMapColour& colour) { return known.insert(colour.id).second; });
        return NormalMapNode(node).coloursCmd(rows);
    };
}

StepsCommand::Step dropColours(MO_Scene& scene, const std::set<CM_ColorId_t>& painted)
{
    return [&scene, painted] { return dropCmd(scene, painted); };
}
