// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Components of a node's editor, which connect the widgets of a Qt layout file with the node that they edit.
//
// The panel that shows the editor finds the components on the widgets that it loads, gives each an owner, and asks it
// to synchronize() whenever the node changes. A component never changes the node itself: it keeps what people enter,
// reports to its owner, and is then asked for a command (apply()).
#pragma once

#include "QuarvelSceneCore/QuarvelSceneCoreExport.h"

#include <QObject>

class CO_OrCommand;
class MO_Module;
class QWidget;

/// The component's view of its panel. GUI thread only.
class QUARVELSCENECORE_EXPORT MO_NodeEditorComponentInterfaceOwner
{
public:
    MO_NodeEditorComponentInterfaceOwner() = default;
    MO_NodeEditorComponentInterfaceOwner(const MO_NodeEditorComponentInterfaceOwner&) = delete;
    MO_NodeEditorComponentInterfaceOwner& operator=(const MO_NodeEditorComponentInterfaceOwner&) = delete;
    virtual ~MO_NodeEditorComponentInterfaceOwner();

    /// The module that is being edited; null when there is none, or it was deleted.
    virtual MO_Module* module() = 0;

    /// To be called by the component when its content changed. The owner collects the change with apply() and executes
    /// it: the module has the new values when this returns.
    virtual void componentChanged() = 0;
};

/// A component, which is a child of its widget and is deleted with it. GUI thread only.
class QUARVELSCENECORE_EXPORT MO_NodeEditorComponentInterface : public QObject
{
    Q_OBJECT

public:
    /// @param widget the widget that the component serves; becomes its parent
    explicit MO_NodeEditorComponentInterface(QWidget* widget);
    ~MO_NodeEditorComponentInterface() override;

    /// @param owner must outlive the component
    virtual void setOwner(MO_NodeEditorComponentInterfaceOwner* owner) = 0;

    /// Shows the module's state, replacing what people entered. Only after setOwner().
    virtual void synchronize() = 0;

    /// Appends the commands that put what people entered into the module; none when the module has it already.
    virtual void apply(CO_OrCommand* command) = 0;
};
