// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ChangedValue: what a change in words did, for the answer to it.
#pragma once

#include <QString>

/// A value of a scene before and after a change, in the notation of SetAttribute.h.
struct ChangedValue
{
    QString what; ///< the subject as it was typed, or an object and the value's word: "object 1 head, bevel"
    QString before;
    QString after;
};
