// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Krita shows all layers of an OpenEXR file on top of each other, and vectors beneath a drawing are seen wherever the
// drawing does not cover. In one attribute of the file Krita keeps which of them are visible.
#pragma once

#include <OpenEXR/ImfChannelList.h>

#include <optional>
#include <string>

/// The name of that attribute.
inline constexpr const char* kIIO_kritaLayers = "krita_layers_info";

/// The attribute's text that hides all layers beside the picture R G B A; nothing when there is no such picture, or no
/// layer beside it.
///
/// The attribute counts only when it names exactly the layers of the file. Facts from Krita's own reader and writer
/// (plugins/impex/exr, 5.1).
std::optional<std::string> IIO_kritaLayers(const Imf::ChannelList& channels);
