// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Changes with the name of what they change: a drag is one step, from its first value to its last.
#include "QuarvelCommand/CO_CommandStack.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/editing/MO_NamedChange.h"

#include <gtest/gtest.h>

TEST(NamedChange, TellsTheFirstValueAndTheLastOneAndIsOneStep)
{
    const AT_DoubleAttrMeta meta(QStringLiteral("Width"), QStringLiteral("Width"), QString(), 0.0, 10.0, 0.0, 10.0,
                                 1.0);
    AT_DoubleAttr width(meta, nullptr, AT_DoubleAttr::NOT_LINKABLE, 1.0, QString());
    CO_CommandStack stack;
    const auto change = [&](const QString& what, double to) {
        stack.execute(MO_namedCmd(MO_EditCommand(width.setValueCmd(0.0, to)),
                                  {what, QString::number(width.localValue()), QString::number(to)}));
    };
    change(QStringLiteral("Width of Head"), 2.0);
    change(QStringLiteral("Width of Head"), 3.0);
    EXPECT_EQ(stack.undoNames(), QStringList(QStringLiteral("Width of Head 1 \u2192 3")));
    change(QStringLiteral("Width of Hat"), 4.0);
    EXPECT_EQ(stack.undoNames().size(), 2);
    stack.undo();
    stack.undo();
    EXPECT_EQ(width.localValue(), 1.0);
    stack.redo();
    EXPECT_EQ(width.localValue(), 3.0);
    EXPECT_EQ(MO_namedCmd(nullptr, {QStringLiteral("Nothing"), {}, {}}), nullptr);
}
