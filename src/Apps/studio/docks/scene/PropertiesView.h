// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PropertiesView: the selected node: its name, its kind, its switch, and its editor.
#pragma once

#include "studio/document/StudioDocument.h"

#include <QWidget>

class PLUG_EditorPanel;
class QCheckBox;
class QLabel;
class QLineEdit;

/// The contents of the dock "Properties".
class PropertiesView : public QWidget
{
    Q_OBJECT

public:
    explicit PropertiesView(StudioDocument& document, QWidget* parent = nullptr);
    ~PropertiesView() override;

    PLUG_EditorPanel& panel() const { return *_panel; }
    QLineEdit& nameField() const { return *_name; }
    QCheckBox& enabledBox() const { return *_enabled; }

Q_SIGNALS:
    /// Something that was entered could not be done; the text says why.
    void commandFailed(const QString& why);

private:
    void follow();
    void synchronize();
    void makeRoom();
    void takeName();
    void takeEnabled(bool enabled);

    StudioDocument& _document;
    QWidget* _head;
    QLineEdit* _name;
    QLabel* _kind;
    QLabel* _hint;
    QCheckBox* _enabled;
    PLUG_EditorPanel* _panel;
    MO_Module* _shown = nullptr;
};
