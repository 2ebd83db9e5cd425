// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "LayeredFiles.h"

#include <QBuffer>
#include <QFile>
#include <zip.h>

#include <gtest/gtest.h>

void writeArchive(const QString& path, const std::vector<std::pair<QByteArray, QByteArray>>& files)
{
    int error = 0;
    zip_t* const archive = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, &error);
    ASSERT_NE(archive, nullptr);
    for (const auto& [name, bytes] : files) {
        zip_source_t* const source =
            zip_source_buffer(archive, bytes.constData(), static_cast<zip_uint64_t>(bytes.size()), 0);
        ASSERT_GE(zip_file_add(archive, name.constData(), source, ZIP_FL_ENC_UTF_8), 0);
    }
    ASSERT_EQ(zip_close(archive), 0);
}

QByteArray pngOf(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(image.save(&buffer, "png"));
    return buffer.data();
}
