// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The same pictures as the command line's, in floats.
#include "Surfaces.h"

#include "jobs/shown/SurfacePictures.h"

namespace {

UT_Result<void> addGloss(GlossSettings& settings, const QString& colour, double gloss)
{
    if (!(gloss >= 0.0 && gloss <= 1.0))
        return UT_Error{QStringLiteral("gloss takes 0 to 1 for a colour, not %1").arg(gloss)};
    if (colour == u"all") {
        settings.others = gloss;
        return {};
    }
    const QColor parsed(colour);
    if (!parsed.isValid() || parsed.alpha() != 255)
        return UT_Error{QStringLiteral("gloss takes colours such as \"#9aa\", and \"all\", not \"%1\"").arg(colour)};
    settings.colours.push_back({parsed, gloss});
    return {};
}

UT_Result<void> keepIn(std::optional<IIO_Picture>& place, UT_Result<IIO_Picture> made)
{
    if (!made)
        return made.error();
    place = std::move(*made);
    return {};
}

} // namespace

ShownParts SurfaceWishes::parts() const
{
    return height || occlusion || numbers ? surfaceParts() : ShownParts{.elevation = true};
}

UT_Result<SurfaceWishes> surfaceWishes(const std::vector<std::string>& also, const std::map<std::string, double>& gloss)
{
    SurfaceWishes wishes;
    for (const std::string& word : also) {
        if (word == "height")
            wishes.height = true;
        else if (word == "occlusion")
            wishes.occlusion = true;
        else if (word == "numbers")
            wishes.numbers = true;
        else
            return UT_Error{
                QStringLiteral("also takes height, occlusion, numbers, not \"%1\"").arg(QString::fromStdString(word))};
    }
    for (const auto& [colour, value] : gloss)
        if (const auto added = addGloss(wishes.gloss, QString::fromStdString(colour), value); !added)
            return added.error();
    return wishes;
}

UT_Result<void> addSurfaces(Maps& maps, const ShownFrame& frame, const SurfaceWishes& wishes)
{
    UT_Result<void> kept;
    if (kept && wishes.height)
        kept = keepIn(maps.height, heightPicture(frame));
    if (kept && wishes.occlusion)
        kept = keepIn(maps.occlusion, occlusionPicture(frame, IIO_SampleType::FLOAT, 0));
    if (kept && wishes.numbers)
        kept = keepIn(maps.numbers, numbersPicture(frame, IIO_SampleType::FLOAT, 16));
    return kept;
}
