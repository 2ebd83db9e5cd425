// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Lists and texts are written with their lengths and every other value in a fixed number of bytes, so that different
// values never give the same bytes.
#include "jobs/frames/FrameDigest.h"

#include "QuarvelPersistentObj/PO_XmlWriter.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/graph/MO_Port.h"
#include "QuarvelSceneCore/graph/MO_Scene.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "QuarvelSceneIO/SIO_DrawingDigest.h"
#include "jobs/frames/FrameValues.h"
#include "jobs/shown/SceneLighting.h"

#include <QCryptographicHash>
#include <QDataStream>

extern const char* const kPixelCode; // a digest of the sources, made by the build

const QString kFrameDigestKey = QStringLiteral("Digest");

namespace {

// Writes the same bytes with every version of Qt.
class Bytes : public QDataStream
{
public:
    explicit Bytes(QByteArray& target) : QDataStream(&target, QIODevice::WriteOnly | QIODevice::Append)
    {
        setVersion(QDataStream::Qt_6_0);
    }
};

// The content of a drawing counts (drawingAt()), not its name.
class ValueWriter final : public FrameValueWriter
{
public:
    using FrameValueWriter::FrameValueWriter;

    void visitDrawing(AT_DrawingAttr&) override {}
};

// Writes the properties of a module, without the values of its attributes and its drawings.
void writeModule(const MO_Module& module, Bytes& out)
{
    QString about;
    {
        PO_XmlWriter writer(about);
        writer.startElement(module.getXmlElementName());
        module.writeXmlAttributes(writer);
        writer.endElement();
    }
    out << about << module.nInPorts();
    for (const AT_Attr* attr : module.attrs())
        out << attr->keyword();
    for (unsigned i = 0; i < module.nInPorts(); ++i) {
        const MO_Port* const source = module.inPort(i)->realSrcPort();
        out << (source && source->node() ? source->node()->instanceName() : QString())
            << (source ? source->index() : 0U);
    }
}

// The functions below use structured bindings, so that they do not compile after a member was added until somebody
// decides whether it counts.

void writeParameters(const RD_RenderParameters& parameters, Bytes& out)
{
    const auto& [format, resolution, margins] = parameters;
    const auto& [left, top, right, bottom] = margins;
    out << format << resolution.first << resolution.second << left << top << right << bottom;
}

void writeGloss(const GlossSettings& settings, Bytes& out)
{
    const auto& [colours, others] = settings;
    out << others << static_cast<qint64>(colours.size());
    for (const auto& [colour, gloss] : colours)
        out << colour.rgb() << gloss;
}

void writePicture(const FramePictureSettings& picture, Bytes& out)
{
    const auto& [source, shown, layout, form, elevation, floatFile, floatRender, half, exr, numbers, scene, node] =
        picture;
    const auto& [yAxis, alpha, bits, pad] = form;
    out << static_cast<int>(source) << static_cast<int>(shown) << static_cast<int>(layout) << elevation << floatFile
        << floatRender << half << static_cast<int>(exr) << numbers;
    out << static_cast<int>(yAxis) << static_cast<int>(alpha) << bits << pad;
}

// The light is written for each frame (of()).
void writeSettings(const RenderFramesSettings& settings, Bytes& out)
{
    const auto& [frames, parameters, picture, content, lighting, lightNote, heights, gloss, roughness, file, atOnce,
                 resume] = settings;
    const auto& [black, white] = heights;
    writeParameters(parameters, out);
    out << static_cast<int>(content) << black << white << roughness;
    writeGloss(gloss, out);
    writePicture(picture, out);
}

void writeColour(const NM_LightColour& colour, Bytes& out)
{
    for (const float channel : colour)
        out << static_cast<double>(channel);
}

void writeLighting(const NM_LightingSettings& lighting, Bytes& out)
{
    const auto& [lights, ambient, highlight, sharpness] = lighting;
    out << static_cast<qint64>(lights.size()) << static_cast<double>(highlight) << static_cast<double>(sharpness);
    writeColour(ambient, out);
    for (const auto& [azimuth, height, colour, place] : lights) {
        out << azimuth << height << place.has_value();
        writeColour(colour, out);
        if (place) {
            const auto& [x, y, above, reach] = *place;
            out << x << y << above << reach;
        }
    }
}

} // namespace

FrameDigests::FrameDigests(const MO_Module& shown, const RenderFramesSettings& settings)
    : _shown(shown), _settings(settings), _scene(dynamic_cast<const MO_Scene*>(shown.sceneCommon()))
{
    Bytes out(_allFrames);
    out << QByteArray(kPixelCode) << shown.instanceName();
    writeSettings(settings, out);
    if (!_scene)
        return;
    out << _scene->frameHeight();
    _scene->root().forEachModule([&](const MO_Module& module) { writeModule(module, out); });
}

QByteArray FrameDigests::of(double frame)
{
    if (!_scene)
        return {};
    bool isKnown = true;
    QByteArray bytes = _allFrames;
    {
        Bytes out(bytes);
        if (_settings.content == FrameContent::LIT)
            writeLighting(_settings.lighting ? *_settings.lighting : sceneLighting(_shown, frame), out);
        ValueWriter writer(out, frame);
        _scene->truckFactorAttr().accept(writer);
        _scene->root().forEachModule([&](const MO_Module& module) {
            for (AT_Attr* const attr : module.attrs())
                attr->accept(writer);
            out << drawingAt(module, frame, isKnown);
        });
    }
    return isKnown ? QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex() : QByteArray();
}

QByteArray FrameDigests::drawingAt(const MO_Module& module, double frame, bool& isKnown)
{
    const auto* const element = dynamic_cast<const MO_ElementModule*>(&module);
    const auto drawing = element ? element->drawingAt(frame) : nullptr;
    if (!drawing)
        return {};
    const auto [known, isNew] = _drawings.try_emplace(drawing.get());
    if (isNew)
        if (const auto digest = SIO_drawingDigest(*drawing); digest)
            known->second = *digest;
    isKnown = isKnown && !known->second.isEmpty();
    return known->second;
}
