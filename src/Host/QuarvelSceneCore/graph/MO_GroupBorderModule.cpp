// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner side of a group's ports.
#include "QuarvelSceneCore/graph/MO_GroupBorderModule.h"

#include <QCoreApplication>

MO_GroupBorderModule::MO_GroupBorderModule(Side side) : MO_Module(0), _side(side) {}

MO_GroupBorderModule::~MO_GroupBorderModule() = default;

QString MO_GroupBorderModule::keyword() const
{
    return _side == Side::ENTRY ? QStringLiteral("GROUP_ENTRY") : QStringLiteral("GROUP_EXIT");
}

QString MO_GroupBorderModule::baseDisplayName() const
{
    return _side == Side::ENTRY ? QCoreApplication::translate("MO_GroupBorderModule", "Group Entry")
                                : QCoreApplication::translate("MO_GroupBorderModule", "Group Exit");
}
