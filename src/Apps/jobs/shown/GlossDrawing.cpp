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

// A value from 0 to 1 in two parts, since colours have 8 bits: steps of 1/255, and the rest in 255ths of a step.
struct SplitValue
{
    std::uint8_t steps = 0;
    std::uint8_t rest = 0;
};

SplitValue split(double value)
{
    const long code = std::lround(std::clamp(value, 0.0, 1.0) * 255.0 * 255.0);
    return {static_cast<std::uint8_t>(code / 255), static_cast<std::uint8_t>(code % 255)};
}

class GlossColours
{
public:
    explicit GlossColours(const GlossSettings& settings) : _others(split(settings.others))
    {
        for (const ColourGloss& set : settings.colours)
            _values[set.colour.rgb()] = {split(set.gloss), false};
    }

    SplitValue of(QRgb colour)
    {
        const auto found = _values.find(colour | 0xff000000U);
        if (found == _values.end())
            return _others;
        found->second.occurs = true;
        return found->second.value;
    }

    std::vector<QColor> missing() const
    {
        std::vector<QColor> missing;
        for (const auto& [colour, value] : _values)
            if (!value.occurs)
                missing.emplace_back(colour);
        return missing;
    }

private:
    struct Value
    {
        SplitValue value;
        bool occurs;
    };

    SplitValue _others;
    std::map<QRgb, Value> _values;
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
        if (!known.values)
            known = {drawing, paint(*drawing)};
        return known.values;
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
        CM_SharedPtr<CM_Palette>& values = _palettes[colours.get()];
        if (values)
            return values;
        values = UT_makeShared<CM_Palette>(colours->GetName());
        for (const auto& colour : colours->colors()) {
            const CM_Rgba& nominal = colour->GetNominalColor();
            const SplitValue gloss = _colours.of(qRgb(nominal.red, nominal.green, nominal.blue));
            auto own = UT_makeShared<CM_Color>(colour->GetColorName(), CM_Color::NORMAL_COLOR, colour->GetColorId());
            own->SetNominalColor({gloss.steps, gloss.rest, 0, nominal.alpha});
            values->addColor(own);
        }
        return values;
    }

    QImage pixels(const QImage& picture)
    {
        if (picture.isNull())
            return picture;
        QImage values = GR_imageInFormat(picture, QImage::Format_ARGB32);
        for (int y = 0; y < values.height(); ++y) {
            auto* const row = reinterpret_cast<QRgb*>(values.scanLine(y));
            for (QRgb& pixel : std::span(row, static_cast<std::size_t>(values.width()))) {
                const SplitValue gloss = qAlpha(pixel) > 0 ? _colours.of(pixel) : SplitValue();
                pixel = qRgba(gloss.steps, gloss.rest, 0, qAlpha(pixel));
            }
        }
        return values;
    }

    struct Painted
    {
        UT_SharedPtr<CELVEC_Kvd> colours; // kept, so that no other drawing gets its address
        UT_SharedPtr<CELVEC_Kvd> values;
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
