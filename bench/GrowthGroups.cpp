// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the command's time grows with the work: a drawing with a number of layers, or of top-level groups that become
// objects, and one with four times as many. The picture is small, so that the work for each layer dominates.
#include "Groups.h"

#include "ResultStream.h"
#include "jobs/drawing/NormalMapJob.h"
#include "jobs/drawing/ReadDrawing.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <iostream>

namespace {

constexpr int kSide = 64;
constexpr int kTimes = 4;
// Four times the work may take this much longer: linear growth, with some room for what does not fit the caches any
// more.
constexpr double kGoal = 4.6;

// A square for each layer, in rows from corner to corner, so that neighbours hardly overlap.
QByteArray drawingOf(int layers, const QByteArray& attributes)
{
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' "
                     "xmlns:inkscape='http://www.inkscape.org/namespaces/inkscape' viewBox='0 0 100 100'>";
    for (int i = 0; i < layers; ++i)
        svg += "<g id='part" + QByteArray::number(i) + "' " + attributes + "><rect x='" +
               QByteArray::number(i * 7 % 97) + "' y='" + QByteArray::number(i * 13 % 97) +
               "' width='3' height='3' fill='#80a0c0'/></g>";
    return svg + "</svg>";
}

class GrownCommand
{
public:
    GrownCommand(int layers, const QByteArray& attributes, ObjectChoice objects)
        : _path(_folder.filePath(QStringLiteral("drawing.svg")))
    {
        _settings.size = QSize(kSide, kSide);
        _settings.form.objects = objects;
        QFile file(_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(drawingOf(layers, attributes)) < 0)
            fail(file.errorString());
    }

    void run()
    {
        const ResultStream othersAreSilent;
        const auto drawing = readDrawing(_path, _settings.form);
        if (!drawing)
            fail(drawing.error().text);
        if (const auto rendered = renderNormalMap(drawing->drawing, _settings, {}); !rendered)
            fail(rendered.error().text);
    }

private:
    [[noreturn]] static void fail(const QString& text)
    {
        std::cerr << "bench_vallorin: " << qPrintable(text) << '\n';
        std::exit(1);
    }

    QTemporaryDir _folder;
    QString _path;
    NormalMapSettings _settings;
};

void addCase(Group& group, const std::string& name, int layers, const QByteArray& attributes, ObjectChoice objects)
{
    const Lazy<GrownCommand> command([=] { return std::make_shared<GrownCommand>(layers, attributes, objects); });
    group.cases.push_back({name, [=](benchmark::State& state) {
                               timeEach(
                                   state, 1, [] {}, [&] { command->run(); });
                           }});
}

Group growthGroup(const std::string& what, int count, const QByteArray& attributes, ObjectChoice objects)
{
    const std::string few = "growth/" + what + "/" + std::to_string(count);
    const std::string many = "growth/" + what + "/" + std::to_string(kTimes * count);
    Group group;
    addCase(group, few, count, attributes, objects);
    addCase(group, many, kTimes * count, attributes, objects);
    group.figures.push_back({many + " : " + std::to_string(count), many, few, kGoal, false, "four times the work"});
    return group;
}

} // namespace

GroupMakers growthGroups()
{
    return {[] { return growthGroup("layers", 200, "inkscape:groupmode='layer'", ObjectChoice::LAYERS); },
            [] { return growthGroup("groups", 1000, {}, ObjectChoice::GROUPS); }};
}
