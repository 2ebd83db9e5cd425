// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main of the tests of drawings: texts need an application for their fonts. The SVG library's remarks on damaged
// drawings are switched off.
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
