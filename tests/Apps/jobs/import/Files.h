// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes small drawings, sprites and animations for the tests of import, and reads the scenes made of them.
#pragma once

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/kinds/MO_ElementModule.h"
#include "TestFolder.h"
#include "jobs/import/ImportDrawings.h"

#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace files {

/// A folder for the files of a test.
class Folder : public TestFolder
{
public:
    using TestFolder::write;

    QString write(const QString& name, const QImage& image) const
    {
        EXPECT_TRUE(image.save(path(name)));
        return path(name);
    }
};

/// A drawing of 100 x 100.
inline QByteArray svg(const QByteArray& content)
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\" "
           "viewBox=\"0 0 100 100\">" +
           content + "</svg>";
}

/// A layer with a square of 10 at x.
inline QByteArray svgLayer(const QByteArray& name, int x, const QByteArray& colour = "#ff0000")
{
    return "<g inkscape:groupmode=\"layer\" inkscape:label=\"" + name + "\"><rect x=\"" + QByteArray::number(x) +
           "\" width=\"10\" height=\"10\" fill=\"" + colour + "\"/></g>";
}

/// Reads valid files; an error makes the test fail.
inline DrawingSequence sequenceOf(const QStringList& paths, const ImportSettings& settings = {})
{
    UT_Result<DrawingSequence> sequence = readSequence(paths, settings);
    if (sequence)
        return std::move(*sequence);
    ADD_FAILURE() << sequence.error().text.toStdString();
    return {};
}

/// The error of reading files; empty if they can be read.
inline std::string refusal(const QStringList& paths, const ImportSettings& settings = {})
{
    const UT_Result<DrawingSequence> sequence = readSequence(paths, settings);
    return sequence ? std::string() : sequence.error().text.toStdString();
}

inline QStringList layerNames(const DrawingSequence& sequence)
{
    QStringList names;
    for (const SequenceLayer& layer : sequence.layers)
        names.append(layer.name);
    return names;
}

using Exposures = std::map<int, int>;
constexpr int kNothing = SequenceLayer::kNothing;

/// The only shape of a drawing.
inline CELVEC_Shape shapeOf(const SequenceLayer& layer, int drawing)
{
    const auto found = layer.drawings.find(drawing);
    if (found == layer.drawings.end() || found->second->shapes(GR_Art::COLOUR).size() != 1) {
        ADD_FAILURE() << "there is no drawing " << drawing << " of one shape";
        return {};
    }
    return found->second->shapes(GR_Art::COLOUR)[0];
}

inline QString colourName(const CM_BaseColorObj& color)
{
    const CM_Rgba& c = color.GetNominalColor();
    return QColor(c.red, c.green, c.blue).name();
}

inline QStringList colourNames(const CM_Palette& palette)
{
    QStringList names;
    for (const auto& color : palette.colors())
        names.append(colourName(*color));
    return names;
}

/// A scene as text: its own XML, and the drawings of its elements.
QString textOf(const MO_Scene& scene);

} // namespace files
