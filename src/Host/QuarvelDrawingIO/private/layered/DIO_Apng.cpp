// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelDrawingIO/private/layered/DIO_Apng.h"

#include "QuarvelDrawingIO/private/layered/DIO_ByteReader.h"
#include "QuarvelDrawingIO/private/layered/DIO_FileLimits.h"
#include "QuarvelGraphicCore/GR_ImageMemory.h"

#include <QPainter>
#include <QRect>
#include <QtEndian>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <optional>

namespace {

using Reader = DIO_ByteReader<DIO_ByteOrder::BIG>;
using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kSignature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kHeaderBytes = 13;

struct Chunk
{
    QByteArray type;
    Bytes data;
};

// The next chunk; none where it is incomplete. Qt checks the checksums of the chunks that it reads.
std::optional<Chunk> nextChunk(Reader& file)
{
    const std::size_t size = file.u32();
    const Bytes type = file.bytes(4);
    const Bytes data = file.bytes(size);
    file.skip(4);
    if (file.hasFailed())
        return {};
    return Chunk{QByteArray(reinterpret_cast<const char*>(type.data()), 4), data};
}

void append(QByteArray& file, const QByteArray& type, Bytes data)
{
    const QByteArray body =
        type + QByteArray(reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size()));
    const auto number = [&](std::uint32_t value) {
        char bytes[4];
        qToBigEndian(value, bytes);
        file.append(bytes, 4);
    };
    number(static_cast<std::uint32_t>(data.size()));
    file.append(body);
    number(static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(body.constData()), static_cast<uInt>(body.size()))));
}

// The content of a chunk fcTL.
struct Control
{
    enum Dispose
    {
        KEEP = 0,
        CLEAR = 1,
        BACK = 2
    };
    QRect place;
    int milliseconds = 0;
    int dispose = KEEP;
    bool isBlended = false;
};

std::optional<Control> controlOf(Bytes data, const QSize& canvas)
{
    Reader reader(data);
    reader.skip(4);
    const std::uint32_t width = reader.u32();
    const std::uint32_t height = reader.u32();
    const std::uint32_t x = reader.u32();
    const std::uint32_t y = reader.u32();
    const int numerator = reader.u16();
    const int denominator = reader.u16();
    Control control;
    control.dispose = reader.u8();
    control.isBlended = reader.u8() == 1;
    const auto right = static_cast<std::uint32_t>(canvas.width());
    const auto bottom = static_cast<std::uint32_t>(canvas.height());
    const bool fits =
        width > 0 && height > 0 && width <= right && height <= bottom && x <= right - width && y <= bottom - height;
    if (reader.hasFailed() || !fits)
        return {};
    control.place = QRect(static_cast<int>(x), static_cast<int>(y), static_cast<int>(width), static_cast<int>(height));
    control.milliseconds = (1000 * numerator + denominator / 2) / (denominator == 0 ? 100 : denominator);
    return control;
}

class ApngReader
{
public:
    explicit ApngReader(const DIO_TakeFrame& take) : _take(take) {}

    UT_Result<void> read(Bytes bytes)
    {
        Reader file(bytes.subspan(std::size(kSignature)));
        for (std::optional<Chunk> chunk = nextChunk(file); chunk; chunk = nextChunk(file)) {
            if (UT_Result<void> taken = takeChunk(*chunk); !taken)
                return taken;
            if (chunk->type == "IEND")
                return finishFrame();
        }
        return DIO_damaged();
    }

private:
    UT_Result<void> takeChunk(const Chunk& chunk)
    {
        if (chunk.type == "IHDR")
            return takeHeader(chunk.data);
        if (chunk.type == "fcTL") {
            if (UT_Result<void> finished = finishFrame(); !finished)
                return finished;
            _control = controlOf(chunk.data, _canvas.size());
            return _control ? UT_Result<void>() : DIO_damaged();
        }
        // The first picture belongs to the film where a control stands before it.
        if (chunk.type == "IDAT") {
            _begun = true;
            if (_control)
                append(_pixels, chunk.type, chunk.data);
        } else if (chunk.type == "fdAT") {
            if (!_control || chunk.data.size() < 4)
                return DIO_damaged();
            append(_pixels, "IDAT", chunk.data.subspan(4));
        } else if (!_begun && chunk.type != "acTL" && chunk.type != "IEND") {
            append(_before, chunk.type, chunk.data);
        }
        return {};
    }

    UT_Result<void> takeHeader(Bytes data)
    {
        Reader reader(data);
        const std::uint32_t width = reader.u32();
        const std::uint32_t height = reader.u32();
        if (data.size() != kHeaderBytes || !_canvas.isNull())
            return DIO_damaged();
        DIO_PixelBudget budget;
        if (UT_Result<void> taken = budget.take(width, height); !taken)
            return taken;
        std::copy_n(data.begin() + 8, _form.size(), _form.begin());
        const bool isDeep = _form[0] > 8;
        _canvas = QImage(static_cast<int>(width), static_cast<int>(height),
                         isDeep ? QImage::Format_RGBA64 : QImage::Format_ARGB32);
        if (_canvas.isNull())
            return UT_noMemory(QStringLiteral("its pictures"), QStringLiteral("make it smaller"));
        _canvas.fill(Qt::transparent);
        return {};
    }

    // A PNG file of one frame, of the size of the frame.
    QByteArray frameFile() const
    {
        QByteArray file(reinterpret_cast<const char*>(kSignature), std::size(kSignature));
        std::array<std::uint8_t, kHeaderBytes> header{};
        qToBigEndian(static_cast<std::uint32_t>(_control->place.width()), header.data());
        qToBigEndian(static_cast<std::uint32_t>(_control->place.height()), header.data() + 4);
        std::copy_n(_form.begin(), _form.size(), header.begin() + 8);
        append(file, "IHDR", header);
        file += _before;
        file += _pixels;
        append(file, "IEND", {});
        return file;
    }

    UT_Result<void> finishFrame()
    {
        if (!_control || _pixels.isEmpty())
            return {};
        QImage picture = QImage::fromData(frameFile(), "png");
        if (picture.size() != _control->place.size())
            return DIO_damaged();
        const QImage before = _control->dispose == Control::BACK ? GR_withPixels(_canvas.copy()) : QImage();
        lay(picture);
        if (UT_Result<void> taken = _take(_canvas, _control->milliseconds); !taken)
            return taken;
        if (_control->dispose == Control::BACK)
            _canvas = before;
        else if (_control->dispose == Control::CLEAR)
            paint([&](QPainter& painter) { painter.fillRect(_control->place, Qt::transparent); },
                  QPainter::CompositionMode_Source);
        _pixels.clear();
        _control.reset();
        return {};
    }

    void lay(const QImage& picture)
    {
        paint([&](QPainter& painter) { painter.drawImage(_control->place.topLeft(), picture); },
              _control->isBlended ? QPainter::CompositionMode_SourceOver : QPainter::CompositionMode_Source);
    }

    template<typename Work>
    void paint(const Work& work, QPainter::CompositionMode mode)
    {
        QPainter painter(&_canvas);
        painter.setCompositionMode(mode);
        work(painter);
    }

    const DIO_TakeFrame& _take;
    QImage _canvas;
    std::array<std::uint8_t, 5> _form{}; ///< of the header: all but the size
    QByteArray _before;                  ///< chunks that all frames share: palette, transparency and others
    QByteArray _pixels;
    std::optional<Control> _control;
    bool _begun = false;
};

} // namespace

bool DIO_isApng(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < std::size(kSignature) || !std::ranges::equal(bytes.first(std::size(kSignature)), kSignature))
        return false;
    Reader file(bytes.subspan(std::size(kSignature)));
    for (std::optional<Chunk> chunk = nextChunk(file); chunk && chunk->type != "IDAT"; chunk = nextChunk(file))
        if (chunk->type == "acTL")
            return true;
    return false;
}

UT_Result<void> DIO_readApng(Bytes bytes, const DIO_TakeFrame& take)
{
    return ApngReader(take).read(bytes);
}
