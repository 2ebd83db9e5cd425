// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A child is forked for each side of each case; it sends one number through a pipe.
#include "PeakMemory.h"

#include "BenchScene.h"
#include "Groups.h"
#include "OpenCvPeer.h"

#include <tbb/task_arena.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kHigh = 2;

double peakBytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

template<typename Pixel>
double bytesPerPixelOfBox(const FrameSize& frame, int bevel, bool ours)
{
    BenchScene<Pixel> scene(frame, BenchScene<Pixel>::Objects::ONE);
    OpenCvPeer<Pixel> peer;
    const double before = peakBytes();
    if (ours)
        tbb::task_arena(1).execute([&] { scene.render(bevel, kHigh); });
    else
        peer.run(*scene.accumulators()[0], *scene.inputs()[0], {.bevel = static_cast<double>(bevel), .quality = kHigh},
                 scene.output());
    return (peakBytes() - before) / static_cast<double>(scene.accumulators()[0]->allocatedRect().area());
}

// The result of the computation in a child process; NaN when it fails.
double inChild(const std::function<double()>& compute)
{
    int ends[2];
    double result = std::nan("");
    if (pipe(ends) != 0)
        return result;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const double value = compute();
        const bool sent = write(ends[1], &value, sizeof value) == sizeof value;
        _exit(sent ? 0 : 1);
    }
    close(ends[1]);
    double value = 0.0;
    if (child > 0 && read(ends[0], &value, sizeof value) == sizeof value)
        result = value;
    close(ends[0]);
    if (child > 0)
        waitpid(child, nullptr, 0);
    return result;
}

using MemoryCases = std::map<std::string, std::function<double(bool ours)>>;

template<typename Pixel>
void addCases(const FrameSize& frame, MemoryCases& cases)
{
    for (const int bevel : kBevels)
        cases[std::string("memory/") + frame.name + '/' + formatName<Pixel>() + "/high/bevel" + std::to_string(bevel)] =
            [&frame, bevel](bool ours) { return bytesPerPixelOfBox<Pixel>(frame, bevel, ours); };
}

MemoryCases memoryCases()
{
    MemoryCases cases;
    for (const FrameSize& frame : kFrameSizes) {
        addCases<CEL_PixelRGBA16>(frame, cases);
        addCases<CEL_PixelRGBAFloat>(frame, cases);
    }
    return cases;
}

} // namespace

std::vector<std::string> memoryCaseNames()
{
    std::vector<std::string> names;
    for (const auto& [name, measure] : memoryCases())
        names.push_back(name);
    return names;
}

MemoryFigure measureMemoryCase(const std::string& name)
{
    const auto measure = memoryCases().at(name);
    return {name, inChild([&] { return measure(true); }), inChild([&] { return measure(false); })};
}
