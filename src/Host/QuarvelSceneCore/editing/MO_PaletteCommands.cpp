// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A drawing's palette never changes, so the drawings are replaced too, by drawings that share their shapes.
#include "QuarvelSceneCore/editing/MO_PaletteCommands.h"

#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace {

using PalettePtr = CM_SharedPtr<CM_Palette>;
using ColorPtr = CM_SharedPtr<CM_BaseColorObj>;
using DrawingPtr = UT_SharedPtr<CELVEC_Kvd>;

ColorPtr copyOf(const CM_BaseColorObj& color)
{
    ColorPtr copy;
    if (const auto* texture = dynamic_cast<const CM_TextureColor*>(&color))
        copy = UT_makeShared<CM_TextureColor>(color.GetColorName(), texture->GetTextureKind(), color.GetColorId());
    else if (const auto* plain = dynamic_cast<const CM_Color*>(&color))
        copy = UT_makeShared<CM_Color>(color.GetColorName(), plain->GetColorType(), color.GetColorId());
    else
        return nullptr;
    copy->SetNominalColor(color.GetNominalColor());
    return copy;
}

// The palette with a colour replaced by another one with the same identifier.
PalettePtr withColor(const CM_Palette& palette, const ColorPtr& changed)
{
    auto copy = UT_makeShared<CM_Palette>(palette.GetName(), palette.GetId());
    for (const ColorPtr& color : palette.colors())
        copy->addColor(color->GetColorId() == changed->GetColorId() ? changed : color);
    return copy;
}

class ReplacePaletteCmd : public CO_Command
{
public:
    ReplacePaletteCmd(QString name, MO_Scene& scene, PalettePtr before, PalettePtr after)
        : _name(std::move(name)), _scene(scene), _before(std::move(before)), _after(std::move(after))
    {
        scene.root().forEachModule([&](MO_Module& module) {
            if (auto* element = dynamic_cast<MO_ElementModule*>(&module))
                addDrawings(*element);
        });
    }

    QString name() const override { return _name; }
    void execute() override { put(_before, _after, true); }
    void undo() override { put(_after, _before, false); }

private:
    struct Drawing
    {
        MO_ElementModule* element;
        QString name;
        DrawingPtr before;
        DrawingPtr after;
    };

    void addDrawings(MO_ElementModule& element)
    {
        for (const auto& [name, drawing] : element.drawings())
            if (drawing && drawing->palette() == _before)
                _drawings.push_back({&element, name, drawing, drawing->withPalette(_after)});
    }

    void put(const PalettePtr& old, const PalettePtr& now, bool forward)
    {
        _scene.replacePalette(old, now);
        for (const Drawing& drawing : _drawings)
            drawing.element->setDrawing(drawing.name, forward ? drawing.after : drawing.before);
    }

    QString _name;
    MO_Scene& _scene;
    PalettePtr _before;
    PalettePtr _after;
    std::vector<Drawing> _drawings;
};

MO_EditCommand changeColorCmd(MO_Scene& scene, const PalettePtr& palette, const CM_ColorId_t& id, const QString& name,
                              const std::function<void(CM_BaseColorObj&)>& change)
{
    const ColorPtr color = palette ? palette->findColor(id) : nullptr;
    const ColorPtr changed = color ? copyOf(*color) : nullptr;
    if (!changed)
        return nullptr;
    change(*changed);
    if (changed->GetColorName() == color->GetColorName() && changed->GetNominalColor() == color->GetNominalColor())
        return nullptr;
    return std::make_unique<ReplacePaletteCmd>(name.arg(color->GetColorName().ToQString()), scene, palette,
                                               withColor(*palette, changed));
}

} // namespace

MO_EditCommand MO_replacePaletteCmd(MO_Scene& scene, const PalettePtr& palette, const PalettePtr& replacement)
{
    if (palette == replacement)
        return nullptr;
    return std::make_unique<ReplacePaletteCmd>(
        MO_CommandTexts::tr("Replace Palette \"%1\"").arg(palette->GetName().ToQString()), scene, palette, replacement);
}

MO_EditCommand MO_addPaletteCmd(MO_Scene& scene, const PalettePtr& palette)
{
    if (std::ranges::find(scene.palettes(), palette) != scene.palettes().end())
        return nullptr;
    return MO_makeStateCmd(MO_CommandTexts::tr("Add Palette \"%1\"").arg(palette->GetName().ToQString()), false, true,
                           [&scene, palette](bool added) {
                               if (added)
                                   scene.addPalette(palette);
                               else
                                   scene.removePalette(palette);
                           });
}

MO_EditCommand MO_renamePaletteCmd(MO_Scene& scene, const PalettePtr& palette, const QString& name)
{
    if (!palette || palette->GetName() == UT_String(name))
        return nullptr;
    auto renamed = UT_makeShared<CM_Palette>(UT_String(name), palette->GetId());
    for (const ColorPtr& color : palette->colors())
        renamed->addColor(color);
    return std::make_unique<ReplacePaletteCmd>(
        MO_CommandTexts::tr("Rename Palette \"%1\"").arg(palette->GetName().ToQString()), scene, palette, renamed);
}

MO_EditCommand MO_renameColorCmd(MO_Scene& scene, const PalettePtr& palette, const CM_ColorId_t& id,
                                 const QString& name)
{
    return changeColorCmd(scene, palette, id, MO_CommandTexts::tr("Rename Colour \"%1\""),
                          [&](CM_BaseColorObj& color) { color.SetColorName(UT_String(name)); });
}

MO_EditCommand MO_recolorCmd(MO_Scene& scene, const PalettePtr& palette, const CM_ColorId_t& id, const CM_Rgba& color)
{
    return changeColorCmd(scene, palette, id, MO_CommandTexts::tr("Change Colour \"%1\""),
                          [&](CM_BaseColorObj& changed) { changed.SetNominalColor(color); });
}
