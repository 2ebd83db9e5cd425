// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The bases of editor components and their owners.
#include "QuarvelSceneCore/graph/MO_NodeEditorComponentInterface.h"

#include <QWidget>

MO_NodeEditorComponentInterfaceOwner::~MO_NodeEditorComponentInterfaceOwner() = default;

MO_NodeEditorComponentInterface::MO_NodeEditorComponentInterface(QWidget* widget) : QObject(widget) {}

MO_NodeEditorComponentInterface::~MO_NodeEditorComponentInterface() = default;
