// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// On x86 the processor is asked (CPUID, as in Intel's "Architectures Software Developer's Manual", volume 2A), and the
// system, whether it saves the long registers (XGETBV). On other processors vector code uses the instruction set that
// the compiler was told.
#include "QuarvelVectorLanes/VL_Targets.h"

#include <array>

#if HWY_ARCH_X86
#if HWY_COMPILER_MSVC
#include <intrin.h>
#else
#include <cpuid.h>
#endif
#endif

namespace {

#if HWY_ARCH_X86

enum Register
{
    EBX = 1,
    ECX = 2,
    EDX = 3
};

/// A bit of CPUID's answer for a leaf.
struct Feature
{
    std::uint32_t leaf;
    Register where;
    int bit;
};

constexpr Feature kSse2{1, EDX, 26};
constexpr Feature kPclmul{1, ECX, 1};
constexpr Feature kSsse3{1, ECX, 9};
constexpr Feature kFma{1, ECX, 12};
constexpr Feature kSse41{1, ECX, 19};
constexpr Feature kSse42{1, ECX, 20};
constexpr Feature kAes{1, ECX, 25};
constexpr Feature kOsxsave{1, ECX, 27};
constexpr Feature kAvx{1, ECX, 28};
constexpr Feature kF16c{1, ECX, 29};
constexpr Feature kLzcnt{0x80000001, ECX, 5};
constexpr Feature kBmi{7, EBX, 3};
constexpr Feature kAvx2{7, EBX, 5};
constexpr Feature kBmi2{7, EBX, 8};
constexpr Feature kAvx512f{7, EBX, 16};
constexpr Feature kAvx512dq{7, EBX, 17};
constexpr Feature kAvx512cd{7, EBX, 28};
constexpr Feature kAvx512bw{7, EBX, 30};
constexpr Feature kAvx512vl{7, EBX, 31};
constexpr Feature kAvx512vbmi{7, ECX, 1};
constexpr Feature kAvx512vbmi2{7, ECX, 6};
constexpr Feature kGfni{7, ECX, 8};
constexpr Feature kVaes{7, ECX, 9};
constexpr Feature kVpclmul{7, ECX, 10};
constexpr Feature kAvx512vnni{7, ECX, 11};
constexpr Feature kAvx512bitalg{7, ECX, 12};
constexpr Feature kAvx512vpopcntdq{7, ECX, 14};

/// EAX, EBX, ECX, EDX; zeros for a leaf that the processor does not have.
std::array<std::uint32_t, 4> cpuid(std::uint32_t leaf)
{
    std::array<std::uint32_t, 4> registers{};
#if HWY_COMPILER_MSVC
    std::array<int, 4> answer{};
    __cpuid(answer.data(), static_cast<int>(leaf & 0x80000000U));
    if (static_cast<std::uint32_t>(answer[0]) < leaf)
        return registers;
    __cpuidex(answer.data(), static_cast<int>(leaf), 0);
    for (std::size_t i = 0; i < registers.size(); ++i)
        registers[i] = static_cast<std::uint32_t>(answer[i]);
#else
    __get_cpuid_count(leaf, 0, &registers[0], &registers[1], &registers[2], &registers[3]);
#endif
    return registers;
}

/// The registers that the system saves when it switches threads. Requires kOsxsave.
std::uint64_t keptRegisters()
{
#if HWY_COMPILER_MSVC
    return _xgetbv(0);
#else
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return std::uint64_t{high} << 32 | low;
#endif
}

template<std::size_t kCount>
bool hasAll(const Feature (&features)[kCount])
{
    for (const Feature& feature : features)
        if ((cpuid(feature.leaf)[feature.where] >> feature.bit & 1) == 0)
            return false;
    return true;
}

std::int64_t detect()
{
    // The features that each set adds to the one before, as Highway's headers compile for it.
    constexpr Feature kForSsse3[] = {kSse2, kSsse3};
    constexpr Feature kForSse4[] = {kSse41, kSse42, kPclmul, kAes};
    constexpr Feature kForAvx2[] = {kOsxsave, kAvx, kAvx2, kLzcnt, kBmi, kBmi2, kFma, kF16c};
    constexpr Feature kForAvx3[] = {kAvx512f, kAvx512dq, kAvx512cd, kAvx512bw, kAvx512vl};
    constexpr Feature kForAvx3Dl[] = {kAvx512vbmi, kAvx512vbmi2, kGfni,         kVaes,
                                      kVpclmul,    kAvx512vnni,  kAvx512bitalg, kAvx512vpopcntdq};
    constexpr std::uint64_t kYmm = 0x6;
    constexpr std::uint64_t kZmm = 0xE6;
    std::int64_t targets = 0;
    if (!hasAll(kForSsse3))
        return targets;
    targets |= HWY_SSSE3;
    if (!hasAll(kForSse4))
        return targets;
    targets |= HWY_SSE4;
    if (!hasAll(kForAvx2) || (keptRegisters() & kYmm) != kYmm)
        return targets;
    targets |= HWY_AVX2;
    if (!hasAll(kForAvx3) || (keptRegisters() & kZmm) != kZmm)
        return targets;
    targets |= HWY_AVX3;
    return hasAll(kForAvx3Dl) ? targets | HWY_AVX3_DL : targets;
}

#else

std::int64_t detect()
{
    return HWY_STATIC_TARGET;
}

#endif

hwy::ChosenTarget& chosen()
{
    static hwy::ChosenTarget target;
    [[maybe_unused]] static const bool isChosen = [] {
        target.Update(VL_supportedTargets());
        return true;
    }();
    return target;
}

} // namespace

std::int64_t VL_supportedTargets()
{
    static const std::int64_t targets = detect();
    return targets;
}

const hwy::ChosenTarget& VL_chosenTarget()
{
    return chosen();
}

void VL_chooseAmong(std::int64_t targets)
{
    chosen().Update(targets == 0 ? VL_supportedTargets() : targets);
}
