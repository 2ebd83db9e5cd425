// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_Curve: a number over time, given by keys. The earlier of two neighbouring keys decides how the value goes to the
// later one: it holds, is interpolated linearly, or follows a cubic Bezier curve. Before the first key and after the
// last one the value is constant.
//
//     <curve>
//       <key frame="1" type="hold" val="0"/>
//       <key frame="12" outFrame="4" outVal="0" type="bezier" val="1"/>
//       <key frame="24" inFrame="-4" inVal="0" type="linear" val="2"/>
//     </curve>
#pragma once

#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QStringList>

#include <vector>

class QDomElement;

/// Keys in the order of their frames, no two at the same frame. A plain value.
class QUARVELSCENECORE_EXPORT AT_Curve
{
public:
    /// How the value goes from one key to the next.
    enum class Interpolation
    {
        HOLD,   ///< stays, and jumps at the next key
        LINEAR, ///< is interpolated linearly
        BEZIER  ///< cubic Bezier curve through the handles of both keys
    };

    /// A handle of a key: a point of the curve's control polygon, relative to the key, in frames and in units of the
    /// value.
    struct Handle
    {
        double frame = 0.0;
        double value = 0.0;

        friend bool operator==(const Handle&, const Handle&) = default;
    };

    struct Key
    {
        double frame = 0.0;
        double value = 0.0;
        /// From this key to the next one.
        Interpolation interpolation = Interpolation::LINEAR;
        /// The handle before the key (frame <= 0), used when the key before it is a Bezier key.
        Handle in;
        /// The handle after the key (frame >= 0), used when this key is a Bezier key.
        Handle out;
        /// Unknown XML of the key, from a newer version.
        PO_UnknownXml unknown;
        /// The name of an interpolation that this version does not know, which counts as linear; empty: none. Who
        /// chooses another interpolation clears it.
        QString otherType = {};

        friend bool operator==(const Key&, const Key&) = default;
    };

    friend bool operator==(const AT_Curve&, const AT_Curve&) = default;

    bool isEmpty() const { return _keys.empty(); }
    const std::vector<Key>& keys() const { return _keys; }
    /// The key at exactly this frame, or null.
    const Key* keyAt(double frame) const;
    /// The last key before the frame, or null.
    const Key* keyBefore(double frame) const;

    /// Adds a key, replacing the one at the same frame.
    ///
    /// @return false, and nothing changes, when one of its numbers is not finite or a handle points the wrong way
    bool setKey(const Key& key);
    /// @return whether there was a key at exactly this frame
    bool removeKey(double frame);

    /// The value at a frame; 0 when there is no key. In a Bezier segment, longer handles are clamped to the segment's
    /// length, so that time never runs backwards; the frame is found to within 1e-12 of the segment's length.
    double value(double frame) const;

    /// Writes the curve as the element "curve"; writes nothing when there is nothing to write.
    void writeXml(PO_XmlWriter& writer) const;
    /// Reads such an element, which replaces this curve. Keys without a readable frame and value are left out, with a
    /// warning; of two keys at one frame the later counts; an unknown type becomes linear, and is written back
    /// unchanged.
    ///
    /// @return whether everything was understood
    bool parseXml(const QDomElement& element, QStringList* warnings);

    /// The name of the element.
    static constexpr QLatin1String kElementName{"curve"};

private:
    bool parseKey(const QDomElement& element, QStringList* warnings);

    std::vector<Key> _keys;
    PO_UnknownXml _unknown;
};
