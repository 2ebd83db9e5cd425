// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Files with layers of pixels, put together byte by byte from the descriptions of their formats.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

#include <utility>
#include <vector>

/// Numbers of a file whose lowest byte comes first.
class LittleEndian
{
public:
    LittleEndian& u8(int value)
    {
        _bytes.append(static_cast<char>(value));
        return *this;
    }
    LittleEndian& u16(int value) { return u8(value & 255).u8(value >> 8 & 255); }
    LittleEndian& u32(qint64 value)
    {
        return u16(static_cast<int>(value & 65535)).u16(static_cast<int>(value >> 16 & 65535));
    }
    LittleEndian& zeros(int count)
    {
        _bytes.append(count, '\0');
        return *this;
    }
    LittleEndian& text(const QByteArray& text)
    {
        u16(static_cast<int>(text.size()));
        _bytes.append(text);
        return *this;
    }
    LittleEndian& bytes(const QByteArray& bytes)
    {
        _bytes.append(bytes);
        return *this;
    }
    const QByteArray& get() const { return _bytes; }

private:
    QByteArray _bytes;
};

/// A file of Aseprite.
class AsepriteFile
{
public:
    static constexpr int kVisible = 1;
    static constexpr int kBackground = 8;

    AsepriteFile(int width, int height, int depth = 32) : _width(width), _height(height), _depth(depth) {}

    /// The chunks that follow belong to this frame.
    void frame(int milliseconds) { _frames.push_back({milliseconds, {}}); }

    void chunk(int type, const QByteArray& data)
    {
        _frames.back().second.push_back(LittleEndian().u32(data.size() + 6).u16(type).bytes(data).get());
    }

    /// @param type 0 pixels, 1 a group, 2 tiles
    void layer(const char* name, int flags = kVisible, int type = 0, int level = 0, int blend = 0, int opacity = 255,
               int tiles = 0)
    {
        LittleEndian data;
        data.u16(flags).u16(type).u16(level).u32(0).u16(blend).u8(opacity).zeros(3).text(name);
        if (type == 2)
            data.u32(tiles);
        chunk(0x2004, data.get());
    }

    void rawCel(int layer, int x, int y, int width, int height, const QByteArray& pixels, int opacity = 255)
    {
        chunk(0x2005, celHead(layer, x, y, opacity, 0).u16(width).u16(height).bytes(pixels).get());
    }
    void packedCel(int layer, int x, int y, int width, int height, const QByteArray& pixels, int opacity = 255)
    {
        chunk(0x2005, celHead(layer, x, y, opacity, 2).u16(width).u16(height).bytes(packed(pixels)).get());
    }
    void linkedCel(int layer, int toFrame) { chunk(0x2005, celHead(layer, 0, 0, 255, 1).u16(toFrame).get()); }

    /// The form of zlib.
    static QByteArray packed(const QByteArray& bytes) { return qCompress(bytes).mid(4); }

    static LittleEndian celHead(int layer, int x, int y, int opacity, int type)
    {
        return LittleEndian().u16(layer).u16(x).u16(y).u8(opacity).u16(type).u16(0).zeros(5);
    }

    QByteArray bytes() const
    {
        QByteArray frames;
        for (const auto& [milliseconds, chunks] : _frames) {
            QByteArray body;
            for (const QByteArray& chunk : chunks)
                body += chunk;
            const auto count = static_cast<int>(chunks.size());
            frames +=
                LittleEndian().u32(body.size() + 16).u16(0xF1FA).u16(count).u16(milliseconds).u16(0).u32(count).get();
            frames += body;
        }
        LittleEndian header;
        header.u32(frames.size() + 128).u16(0xA5E0).u16(static_cast<int>(_frames.size())).u16(_width).u16(_height);
        // Opacities of layers and of groups count.
        header.u16(_depth).u32(3).u16(100).u32(0).u32(0).u8(0).zeros(3).u16(0).u8(1).u8(1).zeros(92);
        return header.get() + frames;
    }

private:
    int _width;
    int _height;
    int _depth;
    std::vector<std::pair<int, std::vector<QByteArray>>> _frames;
};

/// Writes a zip archive.
void writeArchive(const QString& path, const std::vector<std::pair<QByteArray, QByteArray>>& files);

/// The bytes of a picture as a PNG file.
QByteArray pngOf(const QImage& image);
