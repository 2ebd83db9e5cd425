// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The template up to the pictures, the pictures as they come, the rest of the template with what is known at the end.
#include "jobs/page/LitPageFile.h"

#include "QuarvelBaseCore/UT_FileName.h"
#include "QuarvelImageIO/IIO_AtomicFile.h"
#include "QuarvelImageIO/IIO_PngFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

// The macro cannot be used inside a namespace.
static void registerTemplate()
{
    Q_INIT_RESOURCE(page);
}

namespace {

QByteArray resource(const QByteArray& name)
{
    registerTemplate();
    QFile file(QStringLiteral(":/lit-page/template/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("the program lacks its part %s", name.constData());
    return file.readAll();
}

QJsonArray colourJson(const NM_LightColour& colour)
{
    return {colour[0], colour[1], colour[2]};
}

QJsonObject lightJson(const NM_Light& light)
{
    QJsonObject json{{QStringLiteral("azimuth"), light.azimuth},
                     {QStringLiteral("height"), light.height},
                     {QStringLiteral("colour"), colourJson(light.colour)}};
    if (light.place)
        json.insert(QStringLiteral("place"), QJsonObject{{QStringLiteral("x"), light.place->x},
                                                         {QStringLiteral("y"), light.place->y},
                                                         {QStringLiteral("height"), light.place->height},
                                                         {QStringLiteral("reach"), light.place->reach}});
    return json;
}

QJsonObject lightingJson(const NM_LightingSettings& lighting)
{
    QJsonArray lights;
    for (const NM_Light& light : lighting.lights)
        lights.append(lightJson(light));
    return {{QStringLiteral("lights"), lights},
            {QStringLiteral("ambient"), colourJson(lighting.ambient)},
            {QStringLiteral("highlight"), lighting.highlight},
            // The computation takes a power of at least 1.
            {QStringLiteral("sharpness"), std::max(lighting.sharpness, 1.0F)}};
}

} // namespace

UT_Result<void> LitPageFile::check(const QString& path)
{
    const QString suffix = UT_fileSuffix(path);
    if (suffix == QLatin1String("html") || suffix == QLatin1String("htm"))
        return {};
    return UT_Error{QStringLiteral("\"%1\" is not a page; its name must end in .html").arg(path)};
}

LitPageFile::LitPageFile(const QString& path, LitPageSettings settings)
    : _settings(std::move(settings)), _file(std::make_unique<IIO_AtomicFile>(path))
{}

LitPageFile::~LitPageFile() = default;

UT_Result<void> LitPageFile::open()
{
    if (UT_Result<void> opened = _file->open(); !opened)
        return opened;
    const QByteArray page = resource("page.html");
    const QByteArray pictures = "{{pictures}}\n";
    const qsizetype at = page.indexOf(pictures);
    _end = page.mid(at + pictures.size());
    writeTemplate(page.first(at));
    return {};
}

UT_Result<void> LitPageFile::add(const LitPageFrame& frame)
{
    QJsonObject json{{QStringLiteral("number"), frame.number},
                     {QStringLiteral("lighting"), lightingIndex(frame.lighting)}};
    const std::pair<QString, const IIO_Picture*> pictures[] = {
        {QStringLiteral("drawing"), &frame.drawing},
        {QStringLiteral("normals"), &frame.normals},
        {QStringLiteral("elevation"), frame.elevation ? &*frame.elevation : nullptr}};
    for (const auto& [key, picture] : pictures) {
        if (!picture)
            continue;
        const UT_Result<int> index = indexOf(*picture);
        if (!index)
            return index.error();
        json.insert(key, *index);
    }
    _frames.append(json);
    _width = frame.drawing.width();
    _height = frame.drawing.height();
    return {};
}

UT_Result<void> LitPageFile::finish()
{
    if (_frames.isEmpty())
        return UT_Error{QStringLiteral("a page needs a frame")};
    writeTemplate(_end);
    return _file->commit();
}

void LitPageFile::write(const QByteArray& bytes)
{
    _file->device().write(bytes);
}

// Writes a text with values in place of {{keys}}.
void LitPageFile::writeTemplate(const QByteArray& text)
{
    for (qsizetype from = 0; from < text.size();) {
        const qsizetype key = text.indexOf("{{", from);
        const qsizetype end = key < 0 ? -1 : text.indexOf("}}", key);
        write(text.mid(from, key < 0 ? -1 : key - from));
        if (end < 0)
            return;
        write(valueOf(text.mid(key + 2, end - key - 2)));
        from = end + 2;
    }
}

QByteArray LitPageFile::valueOf(const QByteArray& key) const
{
    if (key == "name")
        return _settings.name.toHtmlEscaped().toUtf8();
    return key == "data" ? data() : resource(key);
}

UT_Result<int> LitPageFile::indexOf(const IIO_Picture& picture)
{
    const UT_Result<QByteArray> png = IIO_pngBytes(picture);
    if (!png)
        return png.error();
    const QByteArray digest = QCryptographicHash::hash(*png, QCryptographicHash::Sha256);
    const auto known = _pictures.constFind(digest);
    if (known != _pictures.constEnd())
        return *known;
    const int index = static_cast<int>(_pictures.size());
    _pictures.insert(digest, index);
    write(R"(<script type="text/plain" id="picture-)" + QByteArray::number(index) + "\">" + png->toBase64() +
          "</script>\n");
    return index;
}

int LitPageFile::lightingIndex(const NM_LightingSettings& lighting)
{
    const QJsonObject json = lightingJson(lighting);
    for (int i = 0; i < _lightings.size(); ++i)
        if (_lightings.at(i) == json)
            return i;
    _lightings.append(json);
    return static_cast<int>(_lightings.size()) - 1;
}

QByteArray LitPageFile::data() const
{
    const QJsonObject json{{QStringLiteral("name"), _settings.name},
                           {QStringLiteral("width"), _width},
                           {QStringLiteral("height"), _height},
                           {QStringLiteral("isYUp"), _settings.yAxis == NM_YAxis::UP},
                           {QStringLiteral("framesPerSecond"), _settings.framesPerSecond},
                           {QStringLiteral("lightings"), _lightings},
                           {QStringLiteral("frames"), _frames}};
    // A name may hold "</script>", which would end the element.
    return QJsonDocument(json).toJson(QJsonDocument::Compact).replace('<', "\\u003c");
}
