// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of the tests of drawings: texts need an application for their fonts. It switches off the SVG
// library's messages about damaged drawings.
#include <QGuiApplication>
#include <QLoggingCategory>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("qt.svg.warning=false"));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
