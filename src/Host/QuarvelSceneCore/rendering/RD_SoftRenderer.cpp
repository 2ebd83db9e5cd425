// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The renderer's interface: checks the parameters, and turns exceptions from inside into errors.
#include "QuarvelSceneCore/rendering/RD_SoftRenderer.h"

#include "QuarvelCelCore/CEL_PixmapFactory.h"
#include "QuarvelSceneCore/rendering/RD_RenderShown.h"
#include "QuarvelSceneCore/rendering/private/RD_FrameRender.h"

#include <QCoreApplication>

#include <new>

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("RD_SoftRenderer", text);
}

bool isPossible(int pixels)
{
    return pixels >= 1 && pixels <= RD_RenderParameters::kMaxResolution;
}

CA_CelRef toPixels(const CA_CelRef& cel, const RD_RenderParameters& parameters)
{
    CA_CelRef converted = cel ? cel->convertTo(parameters.celFormat()) : nullptr;
    if (const auto pixels = converted ? converted->pixmap() : nullptr) {
        // The scene may change as soon as the caller has the picture.
        pixels->makePixels();
        return converted;
    }
    const RD_RenderJob job(parameters);
    auto blank = UT_makeShared<CEL_Cel>();
    blank->setRepresentation(CEL_PixmapFactory::create2d(parameters.celFormat(), job.size(), job.canvas()));
    return blank;
}

// @param shown pixels elsewhere may be missing; without a value, all are made
UT_Result<CA_CelRef> renderAll(MO_Module& module, double frame, const RD_RenderParameters& parameters,
                               const std::optional<Math::Box2di>& shown, const RD_SoftRenderer::Progress& progress,
                               RD_KeptInputs* kept)
{
    const auto& [frameWidth, frameHeight] = parameters.resolution;
    const bool frameIsPossible = isPossible(frameWidth) && isPossible(frameHeight);
    // With its margins the picture may be too large where the frame is not.
    const auto [width, height] =
        frameIsPossible ? RD_RenderJob(parameters).size() : Math::Size2di{frameWidth, frameHeight};
    if (!isPossible(width) || !isPossible(height))
        return UT_Error{translated("a picture of %1 x %2 pixels cannot be rendered; each side must have 1 to %3 pixels")
                            .arg(width)
                            .arg(height)
                            .arg(RD_RenderParameters::kMaxResolution),
                        UT_ErrorKind::REFUSED};
    const QString place =
        translated("\"%1\" was not rendered at frame %2").arg(module.instanceName(), QString::number(frame));
    try {
        return toPixels(RD_FrameRender(frame, parameters, shown, progress, kept).render(module), parameters);
    } catch (const RD_FrameRender::Aborted& aborted) {
        return aborted.reason.at(place);
    } catch (const std::bad_alloc&) {
        return UT_noMemory(translated("%1 x %2 pixels").arg(width).arg(height),
                           translated("choose a smaller resolution"))
            .at(place);
    } catch (const std::exception& error) {
        return UT_Error{QString::fromUtf8(error.what())}.at(place);
    }
}

} // namespace

UT_Result<CA_CelRef> RD_SoftRenderer::render(MO_Module& module, double frame, const RD_RenderParameters& parameters,
                                             const Progress& progress, RD_KeptInputs* kept)
{
    return renderAll(module, frame, parameters, {}, progress, kept);
}

UT_Result<CA_CelRef> RD_renderShown(MO_Module& module, double frame, const RD_RenderParameters& parameters,
                                    const Math::Box2di& shown, const RD_SoftRenderer::Progress& progress,
                                    RD_KeptInputs* kept)
{
    return renderAll(module, frame, parameters, shown, progress, kept);
}
