// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// It has to be Qt's own dialog: no system's dialog can be told that some folders are things to open.
#include "studio/document/SceneDialog.h"

#include "studio/document/SceneFiles.h"

#include <QFileIconProvider>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHeaderView>
#include <QIcon>
#include <QTreeView>
#include <QWidget>

namespace {

constexpr int kDateColumn = 3;

class SceneIcons : public QFileIconProvider
{
public:
    QIcon icon(const QFileInfo& info) const override
    {
        return OpenRequest::isScene(info) ? QGuiApplication::windowIcon() : QFileIconProvider::icon(info);
    }
    using QFileIconProvider::icon;

    QString type(const QFileInfo& info) const override
    {
        return OpenRequest::isScene(info) ? SceneDialog::tr("Scene") : QFileIconProvider::type(info);
    }
};

class IconOwner : public QObject
{
public:
    using QObject::QObject;

    SceneIcons icons;
};

} // namespace

SceneDialog::SceneDialog(const QString& folder, QWidget* parent) : QFileDialog(parent, tr("Open a Scene"), folder)
{
    setOption(DontUseNativeDialog);
    setOption(ShowDirsOnly);
    setFileMode(Directory);
    // The dialog's model asks for icons until its end; it is an older child and goes before.
    auto* const icons = new IconOwner(this);
    setIconProvider(&icons->icons);
    // Those that Qt has words for too, because its translations may not be installed.
    setLabelText(LookIn, tr("Look in:"));
    setLabelText(FileName, tr("Scene:"));
    setLabelText(Accept, tr("&Open"));
    setLabelText(Reject, tr("Cancel"));
    // Only folders are shown, so there is no type to choose; and the dates are read in full.
    for (const char* const name : {"fileTypeLabel", "fileTypeCombo"})
        if (auto* const part = findChild<QWidget*>(QLatin1String(name)))
            part->hide();
    // The column of dates is as wide as a date in full.
    if (auto* const list = findChild<QTreeView*>(QStringLiteral("treeView")))
        list->header()->setSectionResizeMode(kDateColumn, QHeaderView::ResizeToContents);
    resize(760, 480);
    connect(this, &QFileDialog::directoryEntered, this, &SceneDialog::entered);
}

// By a double click, or by Enter in the list.
void SceneDialog::entered(const QString& folder)
{
    if (!OpenRequest::isScene(QFileInfo(folder)))
        return;
    _scene = folder;
    done(Accepted);
}

void SceneDialog::accept()
{
    const QString chosen = selectedFiles().value(0);
    if (OpenRequest::isScene(QFileInfo(chosen))) {
        _scene = chosen;
        done(Accepted);
        return;
    }
    if (QFileInfo(chosen).isDir())
        setDirectory(chosen);
}
