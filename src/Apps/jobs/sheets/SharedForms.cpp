// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Collects the forms of corresponding objects over all frames.
#include "jobs/sheets/SharedForms.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>

namespace {

// The forms, by role and by rank in size.
std::map<std::pair<ObjectRole, int>, std::vector<ObjectForm*>> correspondingForms(std::span<ReadDrawing*> frames)
{
    std::map<std::pair<ObjectRole, int>, std::vector<ObjectForm*>> forms;
    for (ReadDrawing* const frame : frames) {
        std::vector<std::size_t> byShare(frame->objects.size());
        std::iota(byShare.begin(), byShare.end(), std::size_t{0});
        std::ranges::stable_sort(byShare, std::greater<>(), [&](std::size_t i) { return frame->objects[i].share; });
        std::map<ObjectRole, int> ranks;
        for (const std::size_t i : byShare) {
            const ObjectRole role = frame->objects[i].role;
            forms[{role, ranks[role]++}].push_back(&frame->drawing.layers[i].form);
        }
    }
    return forms;
}

} // namespace

void shareForms(std::span<ReadDrawing*> frames)
{
    for (auto& [object, forms] : correspondingForms(frames)) {
        std::ranges::stable_sort(forms, {}, &ObjectForm::bevel);
        const ObjectForm middle = *forms[(forms.size() - 1) / 2];
        for (ObjectForm* const form : forms)
            *form = middle;
    }
}
