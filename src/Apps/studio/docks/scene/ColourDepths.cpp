// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tables from files may name a colour more than once; a change reaches all rows of a colour.
#include "studio/docks/scene/ColourDepths.h"

#include "QuarvelGraphicCore/CM_Palette.h"
#include "QuarvelSceneCore/editing/MO_NamedChange.h"
#include "jobs/shown/NormalMapNode.h"
#include "jobs/shown/RenderedKind.h"
#include "studio/docks/scene/ColourSwatch.h"
#include "studio/preview/SceneSnapshot.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ColourDepths)
};

QString depthText(const std::optional<int>& depth)
{
    return depth ? QString::number(*depth) : Texts::tr("none");
}

ColourDepth* find(std::vector<ColourDepth>& colours, const CM_ColorId_t& id)
{
    const auto found = std::ranges::find(colours, id, &ColourDepth::id);
    return found == colours.end() ? nullptr : &*found;
}

} // namespace

MO_Module* nodeWithDepths(const StudioDocument& document)
{
    MO_Module* const current = document.currentModule();
    if (current && NormalMapNode::is(*current))
        return current;
    MO_Module* const shown = shownModule(document.scene());
    const PictureSource source = shown ? pictureSourceOf(*shown) : PictureSource();
    return source.nodes.empty() ? nullptr : source.nodes.front();
}

std::vector<ColourDepth> colourDepthsOf(const MO_Scene& scene, MO_Module& node)
{
    std::vector<ColourDepth> colours;
    for (const CM_SharedPtr<CM_Palette>& palette : scene.palettes())
        for (const auto& colour : palette->colors())
            if (colour.dynamicCast<CM_Color>() && !find(colours, colour->GetColorId()))
                colours.push_back({colour->GetColorId(), colour->GetColorName().ToQString(),
                                   toQColor(colour->GetNominalColor()), std::nullopt});
    for (const NormalMapColour& row : NormalMapNode(node).colours()) {
        if (ColourDepth* const known = find(colours, row.id))
            known->depth = row.level;
        else
            colours.push_back({row.id, row.name, QColor(), row.level});
    }
    return colours;
}

MO_EditCommand setDepthsCmd(MO_Module& node, const std::vector<ColourDepth>& colours, std::optional<int> depth)
{
    if (colours.empty())
        return nullptr;
    std::vector<NormalMapColour> table = NormalMapNode(node).colours();
    for (const ColourDepth& colour : colours) {
        if (!depth) {
            std::erase_if(table, [&](const NormalMapColour& row) { return row.id == colour.id; });
            continue;
        }
        bool isListed = false;
        for (NormalMapColour& row : table)
            if (row.id == colour.id) {
                row.level = *depth;
                isListed = true;
            }
        if (!isListed)
            table.push_back({colour.id, *depth, colour.name});
    }
    const QString subject = colours.size() == 1
                                ? Texts::tr("Depth of \"%1\"").arg(colours.front().name)
                                : Texts::tr("Depth of %n colours", nullptr, static_cast<int>(colours.size()));
    return MO_namedCmd(NormalMapNode(node).coloursCmd(table),
                       {subject, depthText(colours.front().depth), depthText(depth)});
}
