// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_XmlEditable: what has an editor that is laid out by an XML element.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QDomElement>

/// The side of a module that an editor panel asks for the editor's layout.
class QUARVELSCENECORE_EXPORT MO_XmlEditable
{
public:
    MO_XmlEditable() = default;
    MO_XmlEditable(const MO_XmlEditable&) = delete;
    MO_XmlEditable& operator=(const MO_XmlEditable&) = delete;
    virtual ~MO_XmlEditable();

    /// The layout, read or built afresh. The null element, which is the default, says that the panel is to list the
    /// attributes as they come.
    virtual QDomElement obtainEditorLayout();
};
