// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_XmlEditable: an object with an editor whose layout is an XML element.
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QDomElement>

/// The interface through which an editor panel asks a module for the editor's layout.
class QUARVELSCENECORE_EXPORT MO_XmlEditable
{
public:
    MO_XmlEditable() = default;
    MO_XmlEditable(const MO_XmlEditable&) = delete;
    MO_XmlEditable& operator=(const MO_XmlEditable&) = delete;
    virtual ~MO_XmlEditable();

    /// The layout, read or built anew. With the null element, the default, the panel lists the attributes in their
    /// order.
    virtual QDomElement obtainEditorLayout();
};
