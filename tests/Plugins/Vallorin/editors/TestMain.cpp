// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: an application with widgets, a registry for them, and the plug-ins of the build.
#include "TestApplication.h"
#include "WidgetsOfPlugIns.h"

#include <QApplication>

int main(int argc, char** argv)
{
    testing::AddGlobalTestEnvironment(new WidgetsOfPlugIns);
    return runTests<QApplication>(argc, argv);
}
