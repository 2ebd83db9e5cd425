// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How large pictures may be that this process reads.
#pragma once

#include "jobs/limits/JobLimits.h"

/// Lets the readers of this process decode pictures that take up to a sixth of the job's memory, at least 128 MiB:
/// until its objects are chosen a picture takes up to six times as much. A larger picture is an error of its reader.
/// Call it before the first picture is read.
void limitPictures(const JobLimits& limits);
