// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PIO_ComponentReader: reads one XML element into the object that the reader was made for (a module of a scene, say).
// An object that is asked for a reader can prepare itself for being read.
#pragma once

#include "QuarvelPersistentObj/QuarvelPersistentObjExport.h"

#include <QDomElement>
#include <QStringList>

/// Reads an element into one object. Must not outlive the object.
class QUARVELPERSISTENTOBJ_EXPORT PIO_ComponentReader
{
public:
    PIO_ComponentReader() = default;
    PIO_ComponentReader(const PIO_ComponentReader&) = delete;
    PIO_ComponentReader& operator=(const PIO_ComponentReader&) = delete;
    virtual ~PIO_ComponentReader();

    /// Reads the element.
    ///
    /// @param warnings if not null, gets a line for everything that was not understood or had to be changed
    /// @return false when the element is unusable; the object is then unchanged
    virtual bool readElement(const QDomElement& element, QStringList* warnings) = 0;
};
