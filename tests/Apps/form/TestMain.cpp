// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests: texts in drawings need an application for their fonts.
#include "TestApplication.h"

#include <QGuiApplication>

int main(int argc, char** argv)
{
    return runTests<QGuiApplication>(argc, argv);
}
