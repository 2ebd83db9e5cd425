// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// New palettes with the same identifiers, and new pixels for sprites.
#include "jobs/shown/GlossDrawing.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

class GlossColours
{
public:
    explicit GlossColours(const GlossSettings& settings) : _others(codeOf(settings.others))
    {
        for (const ColourGloss& set : settings.colours)
            _codes[set.colour.rgb()] = {codeOf(set.gloss), false};
    }

    // The grey of a colour, 0 to 255.
    std::uint8_t of(QRgb colour)
    {
        const auto found = _codes.find(colour | 0xff000000U);
        if (found == _codes.end())
            return _others;
        found->second.occurs = true;
        return found->second.grey;
    }

    std::vector<QColor> missing() const
    {
        std::vector<QColor> missing;
        for (const auto& [colour, code] : _codes)
            if (!code.occurs)
                missing.emplace_back(colour);
        return missing;
    }

private:
    struct Code
    {
        std::uint8_t grey;
        bool occurs;
    };

    static std::uint8_t codeOf(double gloss)
    {
        return static_cast<std::uint8_t>(std::lround(std::clamp(gloss, 0.0, 1.0) * 255.0));
    }

    std::uint8_t _others;
    std::map<QRgb, Code> _codes;
};

class GlossScene
{
public:
    explicit GlossScene(const GlossSettings& settings) : _colours(settings) {}

    void paint(MO_Scene& scene)
    {
        scene.root().forEachModule([&](MO_Module& module) {
            auto* const element = dynamic_cast<MO_ElementModule*>(&module);
            if (!element)
                return;
            const auto drawings = element->drawings();
            for (const auto& [name, drawing] : drawings)
                if (drawing)
                    element->setDrawing(name, painted(drawing));
        });
    }

    std::vector<QColor> missing() const { return _colours.missing(); }

private:
    // Elements share drawings, and keep sharing them.
    UT_SharedPtr<CELVEC_Kvd> painted(const UT_SharedPtr<CELVEC_Kvd>& drawing)
    {
        Painted& known = _drawings[drawing.get()];
        if (!known.greys)
            known = {drawing, paint(*drawing)};
        return known.greys;
    }

    UT_SharedPtr<CELVEC_Kvd> paint(const CELVEC_Kvd& drawing)
    {
        auto painted = UT_makeShared<CELVEC_Kvd>(palette(drawing.palette()));
        painted->setArtSelector(drawing.artSelector());
        for (const GR_Art art : kGR_allArts)
            for (CELVEC_Shape shape : drawing.shapes(art)) {
                shape.picture = pixels(shape.picture);
                painted->addShape(art, std::move(shape));
            }
        return painted;
    }

    CM_SharedPtr<CM_Palette> palette(const CM_SharedPtr<CM_Palette>& colours)
    {
        if (!colours)
            return colours;
        CM_SharedPtr<CM_Palette>& greys = _palettes[colours.get()];
        if (greys)
            return greys;
        greys = UT_makeShared<CM_Palette>(colours->GetName());
        for (const auto& colour : colours->colors()) {
            const CM_Rgba& nominal = colour->GetNominalColor();
            const std::uint8_t grey = _colours.of(qRgb(nominal.red, nominal.green, nominal.blue));
            auto own = UT_makeShared<CM_Color>(colour->GetColorName(), CM_Color::NORMAL_COLOR, colour->GetColorId());
            own->SetNominalColor({grey, grey, grey, nominal.alpha});
            greys->addColor(own);
        }
        return greys;
    }

    QImage pixels(const QImage& picture)
    {
        if (picture.isNull())
            return picture;
        QImage greys = GR_imageInFormat(picture, QImage::Format_ARGB32);
        for (int y = 0; y < greys.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(greys.scanLine(y));
            for (QRgb& pixel : std::span(row, static_cast<std::size_t>(greys.width()))) {
                const std::uint8_t grey = qAlpha(pixel) > 0 ? _colours.of(pixel) : std::uint8_t{0};
                pixel = qRgba(grey, grey, grey, qAlpha(pixel));
            }
        }
        return greys;
    }

    struct Painted
    {
        UT_SharedPtr<CELVEC_Kvd> colours; // kept, so that no other drawing gets its address
        UT_SharedPtr<CELVEC_Kvd> greys;
    };

    GlossColours _colours;
    std::map<const CM_Palette*, CM_SharedPtr<CM_Palette>> _palettes;
    std::map<const CELVEC_Kvd*, Painted> _drawings;
};

} // namespace

std::vector<QColor> paintGloss(MO_Scene& scene, const GlossSettings& settings)
{
    GlossScene gloss(settings);
    gloss.paint(scene);
    return gloss.missing();
}
