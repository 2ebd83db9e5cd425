// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The main function of these tests, with an application for widgets.
#include "TestApplication.h"

#include <QApplication>

int main(int argc, char** argv)
{
    return runTests<QApplication>(argc, argv);
}
