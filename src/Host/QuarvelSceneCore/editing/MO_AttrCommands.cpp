// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Each command stores the attribute's states before and after (AT_ChangeCmd).
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"

#include "QuarvelSceneCore/attributes/AT_AttrLink.h"
#include "QuarvelSceneCore/attributes/AT_ChangeCmd.h"
#include "QuarvelSceneCore/editing/private/MO_NumbersCmd.h"
#include "QuarvelSceneCore/editing/private/MO_StateCmd.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

template<typename Attr, typename State>
MO_EditCommand changeCmd(Attr& attr, const QString& name, typename AT_ChangeCmd<Attr, State>::Setter setter,
                         const State& before, const State& after)
{
    if (before == after)
        return nullptr;
    return std::make_unique<AT_ChangeCmd<Attr, State>>(attr, name, setter, before, after, QString());
}

MO_EditCommand numberCmd(AT_AnimatableAttr& attr, const AT_AnimatableAttr::State& after)
{
    using State = AT_AnimatableAttr::State;
    return changeCmd<AT_AnimatableAttr, State>(
        attr, attr.changeName(), [](AT_AnimatableAttr& target, const State& state) { target.setState(state); },
        attr.state(), after);
}

// Sets the attribute's surrogate. A link is resolved at once, so that later changes of its target's name reach it.
void drive(AT_SimpleAttr& attr, const UT_SharedPtr<AT_AttrSurrogate>& surrogate)
{
    attr.setSurrogate(surrogate);
    const MO_Node* const node = attr.node();
    const auto* const scene = node ? dynamic_cast<const MO_Scene*>(node->sceneCommon()) : nullptr;
    if (AT_AttrLink* const link = attr.link(); link && scene)
        link->resolve(*scene);
}

// The whole part of a frame, when it fits.
std::optional<int> wholeFrame(double frame)
{
    const double whole = std::floor(frame);
    const bool fits = whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max();
    return fits ? std::optional(static_cast<int>(whole)) : std::nullopt;
}

} // namespace

MO_EditCommand MO_driveCmd(AT_SimpleAttr& attr, const UT_SharedPtr<AT_AttrSurrogate>& surrogate)
{
    if (surrogate && !attr.isLinkable())
        return nullptr;
    using Surrogate = UT_SharedPtr<AT_AttrSurrogate>;
    const QString name =
        (surrogate ? MO_CommandTexts::tr("Link %1") : MO_CommandTexts::tr("Unlink %1")).arg(attr.label());
    return changeCmd<AT_SimpleAttr, Surrogate>(attr, name, drive, attr.surrogate(), surrogate);
}

MO_EditCommand MO_curveCmd(AT_AnimatableAttr& attr, const AT_Curve& curve)
{
    return numberCmd(attr, {attr.state().local, curve});
}

MO_EditCommand MO_constantCmd(AT_AnimatableAttr& attr, double value)
{
    if (!std::isfinite(value))
        return nullptr;
    return numberCmd(attr, {std::clamp(value, attr.lower(), attr.upper()), AT_Curve()});
}

MO_EditCommand MO_numbersCmd(const QString& name, double frame, const std::vector<MO_NumberChange>& changes)
{
    MO_NumbersCmd::Numbers numbers;
    MO_NumbersCmd::States after;
    for (const auto& [number, value] : changes) {
        numbers.push_back(number);
        after.push_back(number->stateWith(frame, value));
    }
    auto command = std::make_unique<MO_NumbersCmd>(name, nullptr, numbers, after);
    return command->hasEffect() ? std::move(command) : nullptr;
}

MO_EditCommand MO_exposuresCmd(AT_DrawingAttr& attr, const AT_ExposureSheet& exposures)
{
    return changeCmd<AT_DrawingAttr, AT_ExposureSheet>(
        attr, attr.changeName(),
        [](AT_DrawingAttr& target, const AT_ExposureSheet& sheet) { target.setExposures(sheet); }, attr.exposures(),
        exposures);
}

MO_EditCommand MO_exposeCmd(AT_DrawingAttr& attr, double frame, const QString& drawing)
{
    const std::optional<int> whole = wholeFrame(frame);
    if (!whole || attr.exposures().drawing(*whole) == drawing)
        return nullptr;
    AT_ExposureSheet sheet = attr.exposures();
    sheet.setExposure(*whole, drawing);
    return MO_exposuresCmd(attr, sheet);
}
