// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_ExposureSheet: which drawing is shown at which frame. An exposure begins at a frame and lasts until the next one
// begins; an exposure without a drawing shows nothing, and nothing is shown before the first one.
//
//     <exposure drawing="1" frame="1"/>
//     <exposure drawing="2" frame="3"/>
#pragma once

#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QString>

#include <map>

/// The exposures of one element. A plain value.
class QUARVELSCENECORE_EXPORT AT_ExposureSheet
{
public:
    friend bool operator==(const AT_ExposureSheet&, const AT_ExposureSheet&) = default;

    bool isEmpty() const { return _exposures.empty(); }
    /// The drawings by the frames at which they begin.
    const std::map<int, QString>& exposures() const { return _exposures; }

    /// Shows a drawing (nothing when the name is empty) from a frame on, up to the next exposure.
    void setExposure(int frame, const QString& drawing);
    /// @return whether an exposure began at exactly this frame; the one before it now lasts longer
    bool removeExposure(int frame);

    /// The drawing shown at a frame; an exposure begins with its frame, so 2.9 shows what 2 shows. Empty when there is
    /// none, or the frame is NaN.
    QString drawing(double frame) const;

    /// Writes an element "exposure" for each, in the order of their frames.
    void writeXml(PO_XmlWriter& writer) const;

    /// The outcome of reading an element.
    enum class Parsed
    {
        YES,    ///< understood
        PARTLY, ///< read; unknown parts are kept and written back
        REFUSED ///< not an exposure: nothing changed
    };
    /// Adds the exposure that an element "exposure" describes; of two at one frame the later counts.
    Parsed parseExposure(const QDomElement& element);

    /// The name of the elements.
    static constexpr QLatin1String kElementName{"exposure"};

private:
    std::map<int, QString> _exposures;
    /// Unknown XML of exposures, from a newer version, by their frames.
    std::map<int, PO_UnknownXml> _unknown;
};
