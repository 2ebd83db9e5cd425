// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Joins what the node made with the objects that were noted while the drawing was painted.
#include "jobs/shown/SurfacePictures.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "QuarvelNormalMap/NM_HeightField.h"
#include "QuarvelNormalMap/NM_Occlusion.h"
#include "jobs/shown/StackedHeights.h"

#include <algorithm>

namespace {

const QString kNumberChannel = QStringLiteral("object.id");

UT_Result<NM_HeightField> heightsIn(const ShownFrame& frame, const Math::Box2di& rect)
{
    if (const UT_Result<void> checked = checkHasHeights(frame.kind); !checked)
        return checked.error();
    const auto rises = [&](int y, std::span<float> row) { frame.objects.risesOfRow(y, rect.x1, row); };
    auto heights = NM_HeightField::create(*frame.picture, frame.elevationChannel(), rect, rises);
    if (heights)
        stackObjects(frame.objects, rect, *heights);
    return heights;
}

template<typename Sample>
void writeNumbers(const ObjectPlane& objects, unsigned factor, IIO_Picture& picture)
{
    const Math::Box2di window = picture.dataWindow();
    std::vector<float> numbers(static_cast<std::size_t>(window.width()));
    for (int y = window.y1; y < window.y2; ++y) {
        objects.numbersOfRow(y, window.x1, numbers);
        std::ranges::transform(numbers, picture.row<Sample>(y).begin(), [factor](float number) {
            return static_cast<Sample>(number * static_cast<float>(factor));
        });
    }
}

int largestNumber(const ObjectPlane& objects)
{
    int largest = 0;
    for (const PlaneObject& object : objects.objects())
        largest = std::max(largest, object.number);
    return largest;
}

} // namespace

UT_Result<void> checkHasHeights(RenderedKind kind)
{
    if (kind != RenderedKind::COLOURS)
        return {};
    return UT_Error{QStringLiteral("heights follow from normals or elevation, and the node makes neither; choose a "
                                   "Vallorin node"),
                    UT_ErrorKind::REFUSED};
}

UT_Result<IIO_Picture> heightPicture(const ShownFrame& frame)
{
    const auto field = heightsIn(frame, frame.window);
    if (!field)
        return field.error();
    return NM_heightPicture(*field);
}

UT_Result<IIO_Picture> occlusionPicture(const ShownFrame& frame, IIO_SampleType samples, int pad)
{
    Math::Box2di rect = frame.window;
    if (!frame.picture->allocatedRect().isEmpty())
        rect.add(frame.picture->allocatedRect());
    const auto heights = heightsIn(frame, rect);
    if (!heights)
        return heights.error();
    const auto openness = NM_openness(*heights);
    if (!openness)
        return openness.error();
    return NM_occlusionPicture(*openness, rect, *frame.picture, frame.window, samples, pad);
}

UT_Result<void> checkNumbersFile(const QString& file)
{
    const UT_Result<IIO_PictureFormat> format = IIO_pictureFormatOf(file);
    if (!format)
        return format.error();
    if (!format->exact)
        return UT_Error{QStringLiteral("%1: .%2 files do not keep numbers exactly; name a .png, .bmp or .exr file for "
                                       "the objects' numbers")
                            .arg(file, format->suffix)};
    return {};
}

UT_Result<IIO_Picture> numbersPicture(const ShownFrame& frame, IIO_SampleType samples, int bits)
{
    const bool isFloat = samples == IIO_SampleType::FLOAT;
    const int most = bits == 8 ? 255 : 65535;
    if (const int largest = largestNumber(frame.objects); !isFloat && largest > most)
        return UT_Error{QStringLiteral("object number %1 does not fit into %2 bits; %3 holds it")
                            .arg(largest)
                            .arg(bits)
                            .arg(bits == 8 ? QStringLiteral("a .png file of 16 bits, or an .exr file,")
                                           : QStringLiteral("an .exr file"))};
    auto picture = IIO_Picture::create(samples, frame.window, frame.window, IIO_channelsGrey());
    if (!picture)
        return picture;
    picture->metadata() = NM_metadataOf(QStringLiteral("object numbers"));
    // A file of 8 bits holds the upper byte of a sample, which is the number if both bytes are.
    constexpr unsigned kBothBytes = 257;
    if (isFloat)
        writeNumbers<float>(frame.objects, 1, *picture);
    else
        writeNumbers<std::uint16_t>(frame.objects, bits == 8 ? kBothBytes : 1, *picture);
    return picture;
}

QString withObjectNumbers(const QString& encoding)
{
    return encoding + QStringLiteral(", object number = ") + kNumberChannel;
}

UT_Result<IIO_Picture> withObjectNumbers(const IIO_Picture& layers, const ObjectPlane& objects)
{
    auto picture = IIO_Picture::create(IIO_SampleType::FLOAT, layers.displayWindow(), layers.dataWindow(),
                                       layers.channels() + QStringList(kNumberChannel));
    if (!picture)
        return picture;
    picture->metadata() = layers.metadata();
    const QString encoding = QStringLiteral("Encoding");
    picture->metadata().set(encoding, withObjectNumbers(layers.metadata().value(encoding)));
    const Math::Box2di window = layers.dataWindow();
    const auto count = static_cast<std::size_t>(layers.channelCount());
    std::vector<float> numbers(static_cast<std::size_t>(window.width()));
    for (int y = window.y1; y < window.y2; ++y) {
        objects.numbersOfRow(y, window.x1, numbers);
        const std::span<const float> from = layers.row<float>(y);
        auto to = picture->row<float>(y).begin();
        for (std::size_t x = 0; x < numbers.size(); ++x) {
            to = std::ranges::copy(from.subspan(x * count, count), to).out;
            *to++ = numbers[x];
        }
    }
    return picture;
}
