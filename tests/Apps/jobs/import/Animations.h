// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Builds small animations in the Lottie format from parts.
#pragma once

#include <QByteArray>

namespace animations {

/// An animation of 100 x 100 with 4 frames; the first layer is the uppermost.
inline QByteArray document(const QByteArray& layers, const QByteArray& more = {})
{
    return R"({"v":"5.5.0","fr":24,"ip":0,"op":4,"w":100,"h":100,"ddd":0,"assets":[],"layers":[)" + layers + "]" +
           more + "}";
}

constexpr const char* kStill = R"({"a":0,"k":[50,50,0]})";

/// A layer of shapes at a place (a property), with more members where wanted.
inline QByteArray layer(const QByteArray& name, const QByteArray& shapes, const QByteArray& place = kStill,
                        const QByteArray& more = {})
{
    return R"({"ddd":0,"ty":4,"nm":")" + name + R"(","sr":1,"ks":{"o":{"a":0,"k":100},"r":{"a":0,"k":0},"p":)" + place +
           R"(,"a":{"a":0,"k":[0,0,0]},"s":{"a":0,"k":[100,100,100]}},"ao":0,"shapes":[)" + shapes +
           R"(],"ip":0,"op":4,"st":0,"bm":0)" + more + "}";
}

/// A group of a shape and its paint.
inline QByteArray group(const QByteArray& shape, const QByteArray& paint)
{
    return R"({"ty":"gr","nm":"group","it":[)" + shape + "," + paint +
           R"(,{"ty":"tr","p":{"a":0,"k":[0,0]},"a":{"a":0,"k":[0,0]},"s":{"a":0,"k":[100,100]},"r":{"a":0,"k":0},)"
           R"("o":{"a":0,"k":100},"sk":{"a":0,"k":0},"sa":{"a":0,"k":0}}]})";
}

/// A square about the layer's place.
inline QByteArray square(int side)
{
    const QByteArray length = QByteArray::number(side);
    return R"({"ty":"rc","d":1,"s":{"a":0,"k":[)" + length + "," + length +
           R"(]},"p":{"a":0,"k":[0,0]},"r":{"a":0,"k":0},"nm":"square"})";
}

/// A line from 40 to the left of the layer's place to 40 to the right.
inline QByteArray line()
{
    return R"({"ty":"sh","ks":{"a":0,"k":{"i":[[0,0],[0,0]],"o":[[0,0],[0,0]],"v":[[-40,0],[40,0]],"c":false}}})";
}

/// A plain fill, by parts of 1.
inline QByteArray fill(const QByteArray& rgb, int opacity = 100)
{
    return R"({"ty":"fl","c":{"a":0,"k":[)" + rgb + R"(,1]},"o":{"a":0,"k":)" + QByteArray::number(opacity) +
           R"(},"r":1,"bm":0})";
}

/// A line of 4 with flat ends.
inline QByteArray stroke(const QByteArray& rgb, const QByteArray& more = {})
{
    return R"({"ty":"st","c":{"a":0,"k":[)" + rgb +
           R"(,1]},"o":{"a":0,"k":100},"w":{"a":0,"k":4},"lc":1,"lj":1,"ml":4)" + more + "}";
}

/// A place that moves 10 a frame, from 20 on.
inline QByteArray moving()
{
    return R"({"a":1,"k":[{"i":{"x":1,"y":1},"o":{"x":0,"y":0},"t":0,"s":[20,50,0],"e":[60,50,0]},{"t":4,"s":[60,50,0]}]})";
}

/// A place that jumps at the third frame.
inline QByteArray jumping()
{
    return R"({"a":1,"k":[{"t":0,"s":[20,50,0],"h":1},{"t":2,"s":[60,50,0],"h":1}]})";
}

/// A square mask about the layer's place. Its mode is "a" (add), "s" (subtract), "i" (intersect), "f" (difference) or
/// "n" (none).
inline QByteArray mask(int side, const QByteArray& mode, bool inverted = false, int opacity = 100)
{
    const QByteArray far = QByteArray::number(side / 2);
    return R"({"inv":)" + QByteArray(inverted ? "true" : "false") + R"(,"mode":")" + mode +
           R"(","pt":{"a":0,"k":{"i":[[0,0],[0,0],[0,0],[0,0]],"o":[[0,0],[0,0],[0,0],[0,0]],"v":[[-)" + far + ",-" +
           far + "],[" + far + ",-" + far + "],[" + far + "," + far + "],[-" + far + "," + far +
           R"(]],"c":true}},"o":{"a":0,"k":)" + QByteArray::number(opacity) + R"(},"x":{"a":0,"k":0}})";
}

/// A layer's member with its masks, separated by commas.
inline QByteArray masked(const QByteArray& masks)
{
    return R"(,"hasMask":true,"masksProperties":[)" + masks + "]";
}

} // namespace animations
