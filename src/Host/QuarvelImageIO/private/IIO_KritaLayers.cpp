// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One element for each layer, with its full name.
#include "QuarvelImageIO/private/IIO_KritaLayers.h"

#include <QXmlStreamWriter>

#include <set>

std::optional<std::string> IIO_kritaLayers(const Imf::ChannelList& channels)
{
    std::set<std::string> layers;
    channels.layers(layers);
    if (layers.empty() || !channels.findChannel("R"))
        return std::nullopt;
    QString text;
    QXmlStreamWriter xml(&text);
    xml.writeStartElement(QLatin1String(kIIO_kritaLayers));
    for (const std::string& layer : layers) {
        xml.writeEmptyElement(QStringLiteral("layer"));
        xml.writeAttribute(QStringLiteral("exr_name"), QString::fromStdString(layer));
        xml.writeAttribute(QStringLiteral("visible"), QStringLiteral("0"));
    }
    xml.writeEndElement();
    return text.toStdString();
}
