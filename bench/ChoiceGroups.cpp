// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What choosing objects and forms takes, beside painting the same drawing once with the program's own rasteriser. The
// drawings are the example without its layers, its outlines alone, as lines, and a thousand shapes.
#include "Groups.h"

#include "QuarvelCelCore/CELVEC_Kvd.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelDrawingIO/DIO_DrawingReader.h"
#include "QuarvelDrawingIO/DIO_KvdConversion.h"
#include "QuarvelDrawingIO/DIO_Palette.h"
#include "form/ChooseForms.h"
#include "form/ChooseObjects.h"

#include <QPainterPathStroker>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int kSizes[] = {512, 3840};

// The example as a drawing that declares no layers.
DIO_Drawing example()
{
    const UT_Result<DIO_Drawing> read = DIO_readDrawing(QStringLiteral(BENCH_DRAWING), DIO_Grouping::ONE);
    if (!read) {
        std::cerr << "bench_vallorin: " << qPrintable(read.error().text) << '\n';
        std::exit(1);
    }
    return *read;
}

// The outlines of the example's shapes, drawn with a black pen.
DIO_Drawing exampleInLines()
{
    DIO_Drawing drawing = example();
    QPainterPathStroker pen;
    pen.setWidth(drawing.viewBox.width() / 100.0);
    const int black = DIO_paintIndex(drawing.palette, DIO_solidPaint(Qt::black));
    for (DIO_Layer& layer : drawing.layers)
        for (DIO_Shape& shape : layer.shapes) {
            shape.path = pen.createStroke(shape.path);
            shape.paint = black;
        }
    return drawing;
}

// Discs in rows, which touch none of their neighbours.
DIO_Drawing thousandShapes()
{
    DIO_Drawing drawing;
    drawing.viewBox = QRectF(0.0, 0.0, 1000.0, 1000.0);
    drawing.layers.resize(1);
    const int colours[] = {DIO_paintIndex(drawing.palette, DIO_solidPaint(Qt::red)),
                           DIO_paintIndex(drawing.palette, DIO_solidPaint(Qt::blue)),
                           DIO_paintIndex(drawing.palette, DIO_solidPaint(Qt::yellow))};
    for (int i = 0; i < 1000; ++i) {
        DIO_Shape shape;
        shape.path.addEllipse(QPointF(i % 25 * 40.0 + 20.0, i / 25 * 25.0 + 12.5), 15.0, 10.0);
        shape.paint = colours[i % 3];
        drawing.layers.front().shapes.push_back(shape);
    }
    return drawing;
}

class ChosenAndPainted
{
public:
    explicit ChosenAndPainted(DIO_Drawing drawing)
        : _drawing(std::move(drawing)), _palette(DIO_toPalette(_drawing)), _painted(DIO_toKvd(_drawing, 0, _palette))
    {}

    void choose() const { benchmark::DoNotOptimize(chooseForms(chooseObjects(_drawing, ObjectChoice::AUTO), {})); }

    void paint(int side) const
    {
        const double scale = side / std::max(_drawing.viewBox.width(), _drawing.viewBox.height());
        CELVEC_RenderArgs args;
        args.drawingToPixel = QTransform::fromScale(scale, scale);
        args.size = {side, side};
        args.canvas = args.wanted = Math::Box2di(0, 0, side, side);
        CEL_PixmapAreaRGBA16 picture(args.size, args.canvas);
        _painted->render(args, picture);
        benchmark::DoNotOptimize(picture);
    }

private:
    DIO_Drawing _drawing;
    CM_SharedPtr<CM_Palette> _palette;
    UT_SharedPtr<CELVEC_Kvd> _painted;
};

Group choiceGroup(const std::string& what, DIO_Drawing (*make)())
{
    const std::string prefix = "choosing/" + what + "/";
    const Lazy<ChosenAndPainted> drawing([make] { return std::make_shared<ChosenAndPainted>(make()); });
    Group group;
    group.cases.push_back({prefix + "choose", [=](benchmark::State& state) {
                               const ChosenAndPainted& made = *drawing;
                               timeEach(state, [&] { made.choose(); });
                           }});
    for (const int side : kSizes) {
        const std::string paint = prefix + "paint at " + std::to_string(side);
        group.cases.push_back({paint, [=](benchmark::State& state) {
                                   const ChosenAndPainted& made = *drawing;
                                   timeEach(state, [&] { made.paint(side); });
                               }});
        group.figures.push_back({prefix + "choose : paint at " + std::to_string(side), prefix + "choose", paint, 1.0,
                                 false, "choosing objects and forms : painting the drawing once"});
    }
    return group;
}

} // namespace

GroupMakers choiceGroups()
{
    return {[] { return choiceGroup("areas", example); }, [] { return choiceGroup("lines", exampleInLines); },
            [] { return choiceGroup("thousand", thousandShapes); }};
}
