// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_KritaTiles.h"

#include "QuarvelDrawingIO/private/layered/DIO_ByteReader.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QRect>
#include <QString>
#include <QStringList>

namespace {

using Bytes = std::span<const std::uint8_t>;
using Reader = DIO_ByteReader<DIO_ByteOrder::LITTLE>;

constexpr int kSide = 64;
constexpr std::size_t kTilePixels = std::size_t{kSide} * kSide;

struct Tile
{
    QPoint place;
    Bytes packed;
};

// Up to the end of the line, without it.
QString line(Reader& file)
{
    constexpr int kLongest = 100;
    QString text;
    for (int i = 0; i < kLongest && !file.hasFailed(); ++i) {
        const std::uint8_t letter = file.u8();
        if (letter == '\n')
            return text;
        text.append(QLatin1Char(static_cast<char>(letter)));
    }
    file.skip(file.left() + 1);
    return {};
}

// "NAME 64".
int numberOf(Reader& file, const char* name)
{
    const QStringList words = line(file).split(QLatin1Char(' '));
    return words.size() == 2 && words[0] == QLatin1String(name) ? words[1].toInt() : -1;
}

// LZF: runs of plain bytes, and repetitions of earlier output. Empty where the result has not exactly a tile's size.
std::vector<std::uint8_t> unpackLzf(Bytes packed, std::size_t size)
{
    std::vector<std::uint8_t> made;
    made.reserve(size);
    Reader reader(packed);
    while (reader.left() > 0) {
        const std::size_t head = reader.u8();
        if (head < 32) {
            const Bytes plain = reader.bytes(head + 1);
            made.insert(made.end(), plain.begin(), plain.end());
        } else {
            std::size_t count = head >> 5;
            if (count == 7)
                count += reader.u8();
            const std::size_t back = ((head & 31) << 8) + reader.u8() + 1;
            if (back > made.size() || made.size() + count + 2 > size)
                return {};
            for (std::size_t i = 0; i < count + 2; ++i)
                made.push_back(made[made.size() - back]);
        }
        if (reader.hasFailed() || made.size() > size)
            return {};
    }
    return made.size() == size ? made : std::vector<std::uint8_t>();
}

QRgba64 pixelOf(Bytes bytes, const DIO_KritaForm& form)
{
    const auto sample = [&](int channel) {
        const auto at = static_cast<std::size_t>(channel) * static_cast<std::size_t>(form.bytes);
        return static_cast<quint16>(form.bytes == 1 ? bytes[at] * 257 : bytes[at] | bytes[at + 1] << 8);
    };
    if (form.channels == 2)
        return QRgba64::fromRgba64(sample(0), sample(0), sample(0), sample(1));
    return QRgba64::fromRgba64(sample(2), sample(1), sample(0), sample(3));
}

class TileReader
{
public:
    TileReader(const DIO_KritaForm& form, Bytes usual) : _form(form), _usual(pixelOf(usual, form)) {}

    UT_Result<DIO_KritaPixels> read(Bytes bytes, const QSize& canvas, DIO_PixelBudget& budget)
    {
        Reader file(bytes);
        if (UT_Result<void> listed = listTiles(file); !listed)
            return listed.error();
        QRect all = _usual.alpha() > 0 ? QRect(QPoint(), canvas) : QRect();
        for (const Tile& tile : _tiles)
            all |= QRect(tile.place, QSize(kSide, kSide));
        if (all.isEmpty())
            return DIO_KritaPixels();
        if (UT_Result<void> taken = budget.take(all.width(), all.height()); !taken)
            return taken.error();
        QImage image(all.size(), QImage::Format_RGBA64);
        if (image.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        image.fill(QColor(_usual));
        for (const Tile& tile : _tiles)
            if (!lay(tile, all.topLeft(), image))
                return DIO_damaged();
        return DIO_KritaPixels{_form.bytes == 1 ? GR_imageInFormat(image, QImage::Format_ARGB32) : image,
                               all.topLeft()};
    }

private:
    UT_Result<void> listTiles(Reader& file)
    {
        constexpr int kMostTiles = 100'000;
        const bool isKnown = numberOf(file, "VERSION") == 2 && numberOf(file, "TILEWIDTH") == kSide &&
                             numberOf(file, "TILEHEIGHT") == kSide &&
                             numberOf(file, "PIXELSIZE") == static_cast<int>(_form.pixelBytes());
        const int count = isKnown ? numberOf(file, "DATA") : -1;
        if (count < 0 || count > kMostTiles)
            return DIO_damaged();
        for (int i = 0; i < count; ++i) {
            const QStringList words = line(file).split(QLatin1Char(','));
            if (words.size() != 4 || words[2] != QLatin1String("LZF"))
                return DIO_damaged();
            const QPoint place(words[0].toInt(), words[1].toInt());
            if (!DIO_isClose(place))
                return DIO_damaged();
            _tiles.push_back({place, file.bytes(words[3].toUInt())});
        }
        return file.hasFailed() ? UT_Result<void>(DIO_damaged()) : UT_Result<void>();
    }

    bool lay(const Tile& tile, const QPoint& origin, QImage& image) const
    {
        const std::size_t size = kTilePixels * _form.pixelBytes();
        if (tile.packed.empty())
            return false;
        const Bytes body = tile.packed.subspan(1);
        const bool isPacked = tile.packed.front() == 1;
        const std::vector<std::uint8_t> bytes =
            isPacked ? unpackLzf(body, size) : std::vector<std::uint8_t>(body.begin(), body.end());
        if (bytes.size() != size)
            return false;
        std::array<std::uint8_t, 8> pixel{};
        const QPoint corner = tile.place - origin;
        for (int y = 0; y < kSide; ++y) {
            auto* const row = reinterpret_cast<QRgba64*>(image.scanLine(corner.y() + y)) + corner.x();
            for (int x = 0; x < kSide; ++x) {
                const auto at = static_cast<std::size_t>(y) * kSide + static_cast<std::size_t>(x);
                for (std::size_t byte = 0; byte < _form.pixelBytes(); ++byte)
                    pixel[byte] = isPacked ? bytes[byte * kTilePixels + at] : bytes[at * _form.pixelBytes() + byte];
                row[x] = pixelOf(pixel, _form);
            }
        }
        return true;
    }

    DIO_KritaForm _form;
    QRgba64 _usual;
    std::vector<Tile> _tiles;
};

} // namespace

UT_Result<DIO_KritaPixels> DIO_readKritaTiles(Bytes file, const DIO_KritaForm& form, Bytes usual, const QSize& canvas,
                                              DIO_PixelBudget& budget)
{
    if (usual.size() != form.pixelBytes())
        return DIO_damaged();
    return TileReader(form, usual).read(file, canvas, budget);
}
