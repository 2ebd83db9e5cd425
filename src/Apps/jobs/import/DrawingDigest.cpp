// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The sizes come before the contents, so that bytes that move from one file to the next make another digest. One file
// alone has the digest that other tools give it.
#include "jobs/import/DrawingDigest.h"

#include "QuarvelBaseCore/UT_PlainFile.h"

#include <QCryptographicHash>
#include <QFile>

QString drawingDigest(const QStringList& files)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString& name : files) {
        QFile file(name);
        if (!UT_openPlainFile(file))
            return {};
        if (files.size() > 1)
            hash.addData(QByteArray::number(file.size()) + '\n');
        if (!hash.addData(&file))
            return {};
    }
    return QString::fromLatin1(hash.result().toHex());
}
