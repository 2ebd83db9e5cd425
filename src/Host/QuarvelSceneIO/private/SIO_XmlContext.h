// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where a piece of XML stands, for messages: "FILE, line N: reason"; and the keeping of what a newer version of the
// program wrote, which always goes with a warning.
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
    /// @param file its path, as people shall read it
    /// @param warnings gets the warnings; null when nobody wants them
    SIO_XmlContext(QString file, SIO_Warnings* warnings) : _file(std::move(file)), _warnings(warnings) {}

    const QString& file() const { return _file; }
    /// Something about an element keeps the file from being read.
    UT_Error error(const QDomElement& element, const QString& reason) const;
    void warn(const QDomElement& element, const QString& reason) const;

    /// Keeps all attributes of an element but the ones that are understood.
    void keepOtherAttributes(const QDomElement& element, const QStringList& understood, PO_UnknownXml& unknown) const;
    /// Keeps an element that is not understood.
    void keepElement(const QDomElement& element, PO_UnknownXml& unknown) const;
    /// Keeps all elements inside of an element.
    void keepAllElements(const QDomElement& element, PO_UnknownXml& unknown) const;
    /// Warns of a file that a newer version wrote.
    void checkVersion(const QDomElement& element, int known) const;

private:
    QString placeOf(const QDomElement& element) const;

    QString _file;
    SIO_Warnings* _warnings;
};

/// A whole document, as bytes.
QByteArray SIO_document(const std::function<void(PO_XmlWriter&)>& write);
