// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/frames/DescribeFrame.h"

#include "QuarvelImageIO/IIO_PictureFile.h"
#include "jobs/frames/FrameDigest.h"

#include <QJsonArray>

UT_Result<std::optional<IIO_Picture>> readFrame(const QString& path)
{
    if (!IIO_pictureFormatOf(path))
        return std::optional<IIO_Picture>();
    UT_Result<IIO_Picture> picture = IIO_read(path);
    // OpenEXR files are never drawings, so a file that cannot be read is an error here.
    if (IIO_isFloatFile(path))
        return picture ? UT_Result<std::optional<IIO_Picture>>(std::move(*picture)) : picture.error();
    if (!picture || picture->metadata().value(kFrameDigestKey).isEmpty())
        return std::optional<IIO_Picture>();
    return std::optional(std::move(*picture));
}

QString describeFrame(const IIO_Picture& frame)
{
    const Math::Box2di& window = frame.displayWindow();
    QString text = QStringLiteral("  a rendered picture of %1 x %2 pixels, channels %3\n")
                       .arg(window.width())
                       .arg(window.height())
                       .arg(frame.channels().join(u' '));
    for (const auto& [key, value] : frame.metadata().entries())
        text += QStringLiteral("  %1: %2\n").arg(key, value);
    return text;
}

QJsonObject frameFields(const IIO_Picture& frame)
{
    const Math::Box2di& window = frame.displayWindow();
    QJsonObject texts;
    for (const auto& [key, value] : frame.metadata().entries())
        texts.insert(key, value);
    return {{QStringLiteral("width"), window.width()},
            {QStringLiteral("height"), window.height()},
            {QStringLiteral("channels"), QJsonArray::fromStringList(frame.channels())},
            {QStringLiteral("texts"), texts}};
}
