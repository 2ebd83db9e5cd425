// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The parser finds the pixmap's format once and decodes pixel by pixel.
#include "MultiStageKvd/NormalParser.h"

#include "QuarvelCelCore/CEL_WithFormat.h"

namespace {

template<typename Pixmap>
bool read(const Pixmap& normals, int x, int y, Math::Vector3d& normal)
{
    const auto* pixel = normals.find(x, y);
    if (!pixel || pixel->a == 0)
        return false;
    normal = NormalParser_decode(*pixel);
    return true;
}

} // namespace

NormalParser::NormalParser(const CEL_PixmapArea& normals)
    : _normals16(CEL_asFormat<CEL_PixelRGBA16>(normals)), _normalsFloat(CEL_asFormat<CEL_PixelRGBAFloat>(normals))
{}

bool NormalParser::normalAt(int x, int y, Math::Vector3d& normal) const
{
    if (_normals16)
        return read(*_normals16, x, y, normal);
    return _normalsFloat && read(*_normalsFloat, x, y, normal);
}
