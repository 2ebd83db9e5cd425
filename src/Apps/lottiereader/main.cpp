// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// quarvel-lottie-reader: reads an animation in the Lottie format from standard input and writes what it paints, frame
// by frame, to standard output (in the format of DIO_LottieStream.h). Other programs run it; a document that crashes
// it, or keeps it busy for ever, affects no other process.
#include "Confinement.h"
#include "StreamWriter.h"

#include <rlottie_capi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace DIO_LottieStream;

namespace {

constexpr std::size_t kMaxFileSize = std::size_t{64} << 20;

int fail(ExitCode code, const char* why)
{
    std::fprintf(stderr, "%s\n", why);
    return code;
}

bool readAll(std::FILE* file, std::string& bytes)
{
    char block[65536];
    std::size_t count = 0;
    while (bytes.size() <= kMaxFileSize && (count = std::fread(block, 1, sizeof block, file)) > 0)
        bytes.append(block, count);
    return std::ferror(file) == 0;
}

int writeFrames(Lottie_Animation* animation)
{
    std::size_t width = 0;
    std::size_t height = 0;
    lottie_animation_get_size(animation, &width, &height);
    const std::size_t frames = lottie_animation_get_totalframe(animation);
    const auto side = static_cast<double>(std::max(width, height));
    if (width == 0 || height == 0 || frames == 0)
        return fail(NOT_READABLE, "the animation has no size or no frames");
    if (side > kMaxSide || frames > kMaxFrames)
        return fail(TOO_LARGE, "the animation is too large or too long");

    StreamWriter writer(stdout);
    writer.writeHeader(static_cast<double>(width), static_cast<double>(height),
                       lottie_animation_get_framerate(animation), static_cast<std::uint32_t>(frames));
    for (std::size_t frame = 0; frame < frames && writer.ok(); ++frame) {
        const LOTLayerNode* root = lottie_animation_render_tree(animation, frame, width, height);
        if (!root)
            return fail(NOT_READABLE, "the animation has no layers");
        writer.writeFrame(*root);
    }
    writer.writeEnd();
    return writer.ok() ? OK : NOT_READABLE;
}

int run(int argc)
{
    if (argc != 1)
        return fail(WRONG_USAGE, "usage: quarvel-lottie-reader < FILE");
    std::string bytes;
    if (!readAll(stdin, bytes))
        return fail(NOT_READABLE, "the file cannot be read");
    if (bytes.size() > kMaxFileSize)
        return fail(TOO_LARGE, "the file is larger than 64 MiB");
    // The stream's own buffer would need fstat(), which confine() forbids.
    static char buffer[65536];
    if (std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer) != 0 || !confine())
        return fail(NOT_READABLE, "the system refuses to limit this process");
    Lottie_Animation* animation = lottie_animation_from_data(bytes.c_str(), "", "");
    if (!animation)
        return fail(NOT_READABLE, "the file is not an animation in the Lottie format");
    return writeFrames(animation);
}

} // namespace

int main(int argc, char**)
{
    const int code = run(argc);
    // Destroying a broken animation might crash, and is unnecessary.
    std::fflush(stdout);
    std::_Exit(code);
}
