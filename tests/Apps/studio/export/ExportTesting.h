// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Tests of exports: the dialog with a drawing to export, and what a person does in it.
#pragma once

#include "Apps/studio/window/WindowTesting.h"

#include "studio/export/ExportDialog.h"
#include "studio/export/GlossDialog.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>

namespace studio_testing {

/// The dialog for the window's scene, filled in by the mouse and keys.
class ExportDialogFixture : public WindowTest
{
protected:
    void open()
    {
        openDisc();
        show();
    }

    /// A red disc as a bitmap of 40 x 40 pixels.
    void openSprite()
    {
        QImage sprite(40, 40, QImage::Format_RGBA8888);
        sprite.fill(Qt::transparent);
        QPainter painter(&sprite);
        painter.setBrush(Qt::red);
        painter.drawEllipse(4, 4, 32, 32);
        painter.end();
        ASSERT_TRUE(sprite.save(folder.filePath(QStringLiteral("sprite.png"))));
        drop({folder.filePath(QStringLiteral("sprite.png"))});
        ASSERT_TRUE(waitForPicture()) << qPrintable(window->messages().text());
    }

    void show()
    {
        ASSERT_TRUE(QDir().mkpath(out()));
        const QString& scene = document().folder();
        dialog = std::make_unique<ExportDialog>(
            document().scene(), ExportOrigin{QStringLiteral("disc"), out(),
                                             scene.isEmpty() ? QStringLiteral("disc") : QFileInfo(scene).fileName()});
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
    }

    QString out() const { return folder.filePath(QStringLiteral("out")); }
    QStringList filesThere() const { return QDir(out()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QByteArray bytesOf(const QString& name) const { return bytesOfFile(folder.filePath(name)); }

    template<typename Widget>
    Widget& field(const char* name) const
    {
        return *dialog->findChild<Widget*>(QString::fromLatin1(name));
    }
    void chooseTarget(const QString& title)
    {
        auto& target = field<QComboBox>("exportTarget");
        ASSERT_GE(target.findText(title), 0) << title.toStdString();
        target.setCurrentIndex(target.findText(title));
    }
    void check(const char* name, bool on)
    {
        auto& box = field<QCheckBox>(name);
        if (box.isChecked() != on)
            QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box.height() / 2));
        ASSERT_EQ(box.isChecked(), on);
    }
    void checkAll()
    {
        for (const char* const name : {"exportMap", "exportElevation", "exportLit", "exportDrawing", "exportHeight",
                                       "exportOcclusion", "exportNumbers", "exportGloss"})
            check(name, true);
    }
    /// Types into a field for numbers.
    void type(const char* name, const QString& keys) const
    {
        auto& number = field<QAbstractSpinBox>(name);
        number.setFocus();
        number.selectAll();
        QTest::keyClicks(&number, keys);
    }
    /// Opens the table of colours by its button, and gives the colour with this tool tip a gloss in percent.
    void setGlossOf(const QString& colour, int percent)
    {
        QTimer::singleShot(0, dialog.get(), [&] {
            auto* const gloss = qobject_cast<GlossDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(gloss, nullptr);
            QTableWidget& table = gloss->table();
            int row = 0;
            while (row < table.rowCount() && table.item(row, GlossDialog::COLOUR)->toolTip() != colour)
                ++row;
            ASSERT_LT(row, table.rowCount());
            table.setFocus();
            table.setCurrentCell(row, GlossDialog::GLOSS);
            auto* const field = table.viewport()->findChild<QSpinBox*>();
            ASSERT_NE(field, nullptr) << "the number is typed at once";
            field->selectAll();
            QTest::keyClicks(field, QString::number(percent));
            gloss->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        });
        QTest::mouseClick(&field<QToolButton>("exportGlossColours"), Qt::LeftButton);
    }
    /// Presses Enter where nothing must be asked.
    void pressEnterUnasked()
    {
        QTimer questions;
        QObject::connect(&questions, &QTimer::timeout, &questions, [] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ADD_FAILURE() << "asked: " << box->text().toStdString();
                box->reject();
            }
        });
        questions.start(10);
        pressEnter();
    }
    void pressEnter() { QTest::keyClick(&field<QLineEdit>("exportFile"), Qt::Key_Return); }
    void exportAll()
    {
        pressEnter();
        ASSERT_TRUE(waitUntil([&] { return !dialog->isRunning(); }));
    }

    QAction* actionNamed(const QString& text) const
    {
        for (QAction* const action : window->findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')) == text)
                return action;
        return nullptr;
    }

    std::unique_ptr<ExportDialog> dialog;
};

} // namespace studio_testing
