// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The node: its identity, how it is made and read. Its part in rendering is in VallorinRendering.cpp, its editor layout
// in VallorinEditorLayout.cpp.
#include "node/Vallorin.h"

#include "QuarvelSceneCore/AT_BoolAttr.h"
#include "QuarvelSceneCore/MO_AbstractModuleVisitor.h"
#include "parameters/VallorinImpl.h"

#include <QCoreApplication>

Vallorin::Vallorin()
{
    setMode(0);
    _impl = std::make_unique<Impl>(*this);
    addInImagePort();
}

Vallorin::~Vallorin() = default;

const QString& Vallorin::Keyword()
{
    static const QString keyword = QStringLiteral("Vallorin");
    return keyword;
}

QString Vallorin::tr(const char* text, const char* disambiguation, int n)
{
    return QCoreApplication::translate("Vallorin", text, disambiguation, n);
}

QString Vallorin::trUtf8(const char* text, const char* disambiguation, int n)
{
    return tr(text, disambiguation, n);
}

AT_StringAttr* Vallorin::colorInformation() const
{
    return _impl->colorInformation;
}

AT_StringAttr* Vallorin::objectInformation() const
{
    return _impl->objectList;
}

QString Vallorin::keyword() const
{
    return Keyword();
}

QString Vallorin::baseDisplayName() const
{
    return tr("Normal-Map");
}

std::unique_ptr<PIO_ComponentReader> Vallorin::componentReader()
{
    _impl->clipBlurredWithGeometry->setLocalValue(false);
    return MO_AutoInPortsModule::componentReader();
}

void Vallorin::accept(MO_AbstractModuleVisitor& visitor)
{
    visitor.visit(*this, *this);
}

MO_CompositeType::CompositeOrder Vallorin::compositeOrder(const MO_BaseContext&)
{
    return MO_CompositeType::PORT_ORDER;
}
