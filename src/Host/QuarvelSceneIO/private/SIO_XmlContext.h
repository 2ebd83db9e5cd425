// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Makes messages about an XML element, "FILE, line N: reason", and keeps parts that a newer version of the program
// wrote, always with a warning.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneIO/private/SIO_Warnings.h"

#include <QStringList>

#include <functional>

/// The file that is being read.
class SIO_XmlContext
{
public:
    /// @param file its path for messages
    /// @param warnings receives the warnings; may be null
    SIO_XmlContext(QString file, SIO_Warnings* warnings) : _file(std::move(file)), _warnings(warnings) {}

    const QString& file() const { return _file; }
    /// The error of a file that cannot be read because of an element.
    UT_Error error(const QDomElement& element, const QString& reason) const;
    void warn(const QDomElement& element, const QString& reason) const;

    /// Keeps all attributes of an element except those that are understood.
    void keepOtherAttributes(const QDomElement& element, const QStringList& understood, PO_UnknownXml& unknown) const;
    /// Keeps an element that is not understood.
    void keepElement(const QDomElement& element, PO_UnknownXml& unknown) const;
    /// Keeps all elements inside an element.
    void keepAllElements(const QDomElement& element, PO_UnknownXml& unknown) const;
    /// Warns if a newer version wrote the file.
    void checkVersion(const QDomElement& element, int known) const;

private:
    QString placeOf(const QDomElement& element) const;

    QString _file;
    SIO_Warnings* _warnings;
};

/// The bytes of a complete document.
QByteArray SIO_document(const std::function<void(PO_XmlWriter&)>& write);
