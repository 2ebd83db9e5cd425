// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// LitPageFile: one page for browsers that shows drawings in a light which follows the pointer. It holds all that it
// needs: pictures, style and scripts (the folder "template"); nothing is fetched.
//
// The page computes the light itself, with the formula of NM_Lighting.h, from 16-bit pictures: at first it shows what
// NM_litPicture() makes, within a step of 255. The pictures are PNG files as they are written elsewhere, and the page
// offers them for download.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"
#include "QuarvelNormalMap/NM_Lighting.h"

#include <QHash>
#include <QJsonArray>

#include <memory>
#include <optional>

class IIO_AtomicFile;

/// What a page shows of one frame. All pictures are of one size.
struct LitPageFrame
{
    int number = 1;
    IIO_Picture drawing; ///< channels R G B A, straight, sRGB
    IIO_Picture normals; ///< a normal map in the layout TANGENT
    std::optional<IIO_Picture> elevation;
    NM_LightingSettings lighting;
};

/// What all frames of a page have in common.
struct LitPageSettings
{
    QString name; ///< of the drawing or the scene; the page's title, and the beginning of the names of downloads
    NM_YAxis yAxis = NM_YAxis::UP; ///< of the normal maps
    double framesPerSecond = 24.0;
};

/// A page being written, frame by frame. It appears whole with finish(), or not at all. For one thread at a time.
class LitPageFile
{
public:
    /// @return an error when the name is not that of a page: it is to end in .html or .htm
    static UT_Result<void> check(const QString& path);

    LitPageFile(const QString& path, LitPageSettings settings);
    ~LitPageFile();
    LitPageFile(const LitPageFile&) = delete;
    LitPageFile& operator=(const LitPageFile&) = delete;

    /// Begins the file; to be called first.
    UT_Result<void> open();

    /// Adds a frame. Pictures that the page holds already are not written again.
    UT_Result<void> add(const LitPageFrame& frame);

    /// Ends the file and gives it its name.
    ///
    /// @return an error when there is no frame or a write failed; what was there before is then unchanged
    UT_Result<void> finish();

private:
    void write(const QByteArray& bytes);
    void writeTemplate(const QByteArray& text);
    QByteArray valueOf(const QByteArray& key) const;
    UT_Result<int> indexOf(const IIO_Picture& picture);
    int lightingIndex(const NM_LightingSettings& lighting);
    QByteArray data() const;

    LitPageSettings _settings;
    std::unique_ptr<IIO_AtomicFile> _file;
    QByteArray _end;                  ///< the part of the template that follows the pictures
    QHash<QByteArray, int> _pictures; ///< by their digests
    QJsonArray _lightings;
    QJsonArray _frames;
    int _width = 0;
    int _height = 0;
};
