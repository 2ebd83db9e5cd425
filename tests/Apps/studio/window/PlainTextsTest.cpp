// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Names that look like HTML are shown as they are.
#include "Apps/studio/window/WindowTesting.h"

#include "studio/objects/ObjectsModel.h"
#include "studio/objects/ObjectsView.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QTableView>
#include <QToolTip>

namespace {

class PlainTextsTest : public studio_testing::WindowTest
{
protected:
    static QLabel* toolTip()
    {
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (widget->inherits("QTipLabel"))
                return static_cast<QLabel*>(widget);
        return nullptr;
    }
};

TEST_F(PlainTextsTest, AToolTipShowsAnObjectsNameAsItIs)
{
    drop({write(QStringLiteral("named.svg"),
                R"(<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100">
  <g id="Box" data-vallorin-bevel="20"><rect x="10" y="10" width="30" height="80" fill="#4040c0"/></g>
  <g id="&lt;b&gt;Head&lt;/b&gt;" data-vallorin-bevel="30"><rect x="50" y="20" width="40" height="60" fill="#c04040"/></g>
</svg>)")});
    ASSERT_TRUE(waitForPicture());
    const QTableView& table = window->findChild<ObjectsView*>()->table();
    const QString head = QStringLiteral("<b>Head</b>");
    const QModelIndexList found =
        table.model()->match(table.model()->index(0, ObjectsModel::NAME), Qt::DisplayRole, head, 1, Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    const QModelIndex name = found.first();
    const QPoint at = table.visualRect(name).center();
    QHelpEvent help(QEvent::ToolTip, at, table.viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(table.viewport(), &help);
    ASSERT_TRUE(toolTip());
    EXPECT_TRUE(toolTip()->text().contains(head)) << toolTip()->text().toStdString();
    EXPECT_EQ(toolTip()->textFormat(), Qt::PlainText);
    QToolTip::hideText();
}

TEST_F(PlainTextsTest, AQuestionShowsAFilesNameAsItIsUnlessItSaysOtherwise)
{
    QMessageBox question(QMessageBox::Question, QStringLiteral("Save"), QStringLiteral("<b>hero</b>.scene exists"));
    question.ensurePolished();
    EXPECT_EQ(question.textFormat(), Qt::PlainText);
    QMessageBox about(QMessageBox::Information, QStringLiteral("About"), QStringLiteral("<h3>Quarvel Studio</h3>"));
    about.setTextFormat(Qt::RichText);
    about.ensurePolished();
    EXPECT_EQ(about.textFormat(), Qt::RichText);
}

} // namespace
