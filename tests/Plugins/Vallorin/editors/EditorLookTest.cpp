// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How the panel looks: every widget has the room that it needs. With EDITOR_SCREENSHOTS set to a folder, the tests save
// pictures of the panel there for people to look at.
#include "Plugins/Vallorin/editors/EditorTesting.h"

#include "QuarvelPlugInManager/PLUG_Manager.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>

namespace {

class EditorLook : public EditorTest
{
protected:
    /// Two objects and five colours.
    void fill()
    {
        const auto body = addPalette("Body");
        addColour(*body, "Skin", 0xa1, {236, 188, 150, 255});
        addColour(*body, "Skin shadow", 0xa2, {170, 110, 84, 255});
        addColour(*body, "Hair", 0xa3, {72, 48, 40, 255});
        addColour(*body, "Coat", 0xa4, {52, 96, 164, 255});
        addColour(*body, "Brass buttons", 0xa5, {220, 176, 60, 255});
        define(1, "Body-Definition");
        define(2, "Left Arm-Definition");
        attr("ObjectList")->setLocalValue(QStringLiteral("1:24:1.5:2;2:12.5:1:1"));
        attr("ColorInformation")
            ->setLocalValue(QStringLiteral("00000000000000a1:255:Skin;00000000000000a2:128:Skin shadow;"
                                           "00000000000000a3:204:Hair;00000000000000a4:255:Coat;"
                                           "00000000000000a5:38:Brass buttons"));
        AT_Curve curve;
        curve.setKey({1.0, 1.5, AT_Curve::Interpolation::LINEAR, {}, {}, {}});
        dynamic_cast<AT_AnimatableAttr*>(node.findAttr(QStringLiteral("BlurScale")))->setCurve(curve);
    }

    /// The widgets that are smaller than they need to be.
    std::vector<std::string> cut() const
    {
        std::vector<std::string> found;
        for (const QWidget* const widget : panel->content()->findChildren<QWidget*>()) {
            const bool isText = qobject_cast<const QLabel*>(widget) || qobject_cast<const QAbstractButton*>(widget) ||
                                qobject_cast<const QComboBox*>(widget) || qobject_cast<const QSpinBox*>(widget);
            const bool isCorner = widget->inherits("QTableCornerButton");
            if (isText && !isCorner && widget->isVisible() && widget->width() < widget->minimumSizeHint().width())
                found.push_back(std::string(widget->metaObject()->className()) + ' ' +
                                widget->objectName().toStdString());
        }
        return found;
    }

    void leavePicture(const char* name) const
    {
        const QString folder = qEnvironmentVariable("EDITOR_SCREENSHOTS");
        if (folder.isEmpty())
            return;
        EXPECT_TRUE(panel->grab().save(QDir(folder).filePath(QString::fromLatin1(name))));
    }
};

TEST_F(EditorLook, GivesEverythingItsRoom)
{
    fill();
    panel->resize(640, 960);
    open();
    leavePicture("editors.png");
    EXPECT_THAT(cut(), testing::IsEmpty());
    EXPECT_GE(colours()->columnWidth(0), 300) << "the sliders can be aimed";
    const QHeaderView* const header = objects()->horizontalHeader();
    for (int column = 0; column < 4; ++column) {
        const QString title = objects()->model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_GE(header->sectionSize(column), header->fontMetrics().horizontalAdvance(title) + 4) << "is cut";
    }
    EXPECT_GE(colours()->viewport()->height(), colours()->verticalHeader()->length()) << "all five colours are seen";
}

TEST_F(EditorLook, GivesGermanItsRoom)
{
    PLUG_Manager::installTranslations(QLocale(QStringLiteral("de_DE")));
    fill();
    panel->resize(640, 960);
    open();
    leavePicture("editors_de.png");
    EXPECT_THAT(cut(), testing::IsEmpty());
    PLUG_Manager::installTranslations(QLocale::c());
}

} // namespace
