// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Checks paths part by part with the same rules on every system: a part that any system treats as a drive or a parent
// folder is refused on all.
#include "QuarvelSceneIO/private/SIO_PathInside.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

bool isPlainName(const QString& part)
{
    if (part.isEmpty() || part.endsWith(u'.') || part.endsWith(u' '))
        return false;
    return std::none_of(part.begin(), part.end(), [](QChar c) { return c == u'\\' || c == u':' || c < u' '; });
}

} // namespace

UT_Result<QString> SIO_pathInside(const QString& folder, const QString& relative)
{
    const QStringList parts = relative.split(u'/');
    if (!std::all_of(parts.begin(), parts.end(), isPlainName))
        return UT_Error{QCoreApplication::translate("SIO_PathInside", "\"%1\" is not a path within the scene's folder")
                            .arg(relative)};
    return folder + u'/' + relative;
}
