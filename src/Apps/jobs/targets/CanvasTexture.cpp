// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The text format of Godot's resources, version 3.
#include "jobs/targets/CanvasTexture.h"

#include <QDir>
#include <QFileInfo>

#include <vector>

namespace {

QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

} // namespace

QByteArray canvasTexture(const CanvasTextureFiles& files)
{
    const QDir folder = QFileInfo(files.resource).absoluteDir();
    std::vector<std::pair<QString, QString>> textures{{QStringLiteral("diffuse_texture"), files.drawing},
                                                      {QStringLiteral("normal_texture"), files.normals}};
    if (!files.gloss.isEmpty())
        textures.emplace_back(QStringLiteral("specular_texture"), files.gloss);
    QString named;
    QString used;
    int id = 0;
    for (const auto& [property, file] : textures) {
        const QString path = folder.relativeFilePath(QFileInfo(file).absoluteFilePath());
        named += QStringLiteral("[ext_resource type=\"Texture2D\" path=%1 id=\"%2\"]\n")
                     .arg(quoted(path), QString::number(++id));
        used += QStringLiteral("%1 = ExtResource(\"%2\")\n").arg(property).arg(id);
    }
    return QStringLiteral("[gd_resource type=\"CanvasTexture\" load_steps=%1 format=3]\n\n%2\n[resource]\n%3")
        .arg(QString::number(id + 1), named, used)
        .toUtf8();
}
