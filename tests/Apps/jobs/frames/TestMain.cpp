// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: an application for the painter, and the plug-ins of the build.
#include "PlugInsOfTheBuild.h"
#include "TestApplication.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    testing::AddGlobalTestEnvironment(new PlugInsOfTheBuild);
    return runTests<QGuiApplication>(argc, argv);
}
