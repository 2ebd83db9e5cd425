// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main functions of test programs that need an application of Qt.
#pragma once

#include <QLoggingCategory>

#include <gtest/gtest.h>

/// Runs all tests inside an application of this class. Windows are not shown, unless the environment names another
/// platform. The SVG library's messages about damaged drawings are switched off, because tests read many.
///
/// @return the exit code
template<typename Application>
int runTests(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("qt.svg.warning=false"));
    testing::InitGoogleTest(&argc, argv);
    const Application application(argc, argv);
    return RUN_ALL_TESTS();
}
