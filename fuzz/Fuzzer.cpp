// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// libFuzzer's entry points, for the target that the build names.
#include "Targets.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    prepareFuzzing(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    static const FuzzTarget* const target = findFuzzTarget(FUZZ_TARGET);
    target->run(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(count)));
    return 0;
}
