// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Moving, scaling or mirroring a drawing moves, scales or mirrors its objects, and their values stay the same.
#include "FormDrawings.h"
#include "form/ChooseForms.h"

using namespace form_drawings;

namespace {

DIO_Drawing transformed(DIO_Drawing drawing, const QTransform& transform)
{
    drawing.viewBox = transform.mapRect(drawing.viewBox);
    for (DIO_Layer& layer : drawing.layers)
        for (DIO_Shape& shape : layer.shapes) {
            shape.path = transform.map(shape.path);
            if (shape.clip)
                shape.clip = transform.map(*shape.clip);
        }
    return drawing;
}

std::vector<QByteArray> drawings()
{
    const QByteArray face = circle(50, 50, 40, "#ffcc4d");
    return {
        face + circle(36, 40, 5, "#664500") + circle(64, 40, 5, "#664500") +
            "<path d='M30 58h40q0 20 -20 20t-20 -20z' fill='#664500'/>" + rect(34, 58, 32, 6, "#ffffff"),
        rect(20, 45, 60, 50, "#ffe8b6") + "<path d='M10 45l40 -35l40 35z' fill='#a0041e'/>" +
            rect(28, 55, 12, 12, "#55acee") + rect(60, 55, 12, 12, "#55acee") + line("M20 45h60v50h-60z"),
        rect(30, 50, 40, 50, "#3f7d63") + circle(50, 35, 25, "#efb286") +
            line("M25 35a25 25 0 1 0 50 0a25 25 0 1 0 -50 0z") + line("M30 100v-42") + line("M70 100v-42"),
        "<ellipse cx='50' cy='90' rx='30' ry='5' opacity='0.4'/>" + circle(50, 60, 28, "#5aa9dc") +
            circle(30, 25, 15, "#5aa9dc") + circle(30, 25, 4, "#ffffff"),
    };
}

class Invariance : public testing::TestWithParam<QTransform>
{};

} // namespace

TEST_P(Invariance, ofObjectsAndValues)
{
    for (const QByteArray& content : drawings()) {
        SCOPED_TRACE(content.toStdString());
        const DIO_Drawing drawing = read(content);
        const DIO_Drawing other = transformed(drawing, GetParam());
        const ChosenObjects found = chooseObjects(drawing, ObjectChoice::AUTO);
        const ChosenObjects again = chooseObjects(other, ObjectChoice::AUTO);
        ASSERT_EQ(again.objects.size(), found.objects.size());
        const std::vector<ObjectForm> forms = chooseForms(found, {});
        const std::vector<ObjectForm> formsAgain = chooseForms(again, {});
        for (std::size_t i = 0; i < forms.size(); ++i) {
            EXPECT_EQ(again.objects[i].role, found.objects[i].role);
            EXPECT_EQ(again.objects[i].name, found.objects[i].name);
            EXPECT_EQ(again.objects[i].reason, found.objects[i].reason);
            EXPECT_EQ(again.drawing.layers[i].shapes.size(), found.drawing.layers[i].shapes.size());
            EXPECT_NEAR(formsAgain[i].bevel, forms[i].bevel, 0.02 * forms[i].bevel);
            EXPECT_NEAR(formsAgain[i].elevation, forms[i].elevation, 0.02 * std::abs(forms[i].elevation));
            EXPECT_NEAR(formsAgain[i].smoothness, forms[i].smoothness, 0.05);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Transforms, Invariance,
                         testing::Values(QTransform::fromTranslate(1234.5, -77.25), QTransform::fromScale(0.013, 0.013),
                                         QTransform::fromScale(40.0, 40.0), QTransform::fromScale(-1.0, 1.0),
                                         QTransform::fromScale(1.0, -1.0)));
