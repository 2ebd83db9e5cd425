// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SceneDialog: asks which scene to open. A scene is a folder, and the system's own dialogs lead people into folders; in
// this one scenes have the application's icon and are opened as files are, while other folders are entered.
#pragma once

#include <QFileDialog>

class SceneDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// @param folder where it begins
    SceneDialog(const QString& folder, QWidget* parent = nullptr);

    /// The scene that was chosen; empty when none was.
    const QString& scene() const { return _scene; }

    void accept() override;

private:
    void entered(const QString& folder);

    QString _scene;
};
