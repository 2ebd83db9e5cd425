// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From the settings' word for what becomes an object to the readers'.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"
#include "jobs/drawing/NormalMapSettings.h"

inline DIO_Grouping groupingOf(ObjectGrouping grouping)
{
    switch (grouping) {
    case ObjectGrouping::GROUPS:
        return DIO_Grouping::GROUPS;
    case ObjectGrouping::ONE:
        return DIO_Grouping::ONE;
    case ObjectGrouping::AUTO:
        break;
    }
    return DIO_Grouping::AUTO;
}
