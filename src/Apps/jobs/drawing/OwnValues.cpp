// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/drawing/OwnValues.h"

#include "QuarvelBaseCore/UT_PlainFile.h"
#include "form/ReliefLayers.h"
#include "jobs/drawing/ObjectNames.h"
#include "jobs/drawing/ObjectWords.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr qint64 kMaxBytes = 1024 * 1024;

bool isValue(const QString& word)
{
    return word.contains(u'=') && isObjectWord(word.section(u'=', 0, 0));
}

// Removes quotes around a line, which may have been copied from a command line.
QString withoutQuotes(const QString& line)
{
    const bool quoted =
        line.size() >= 2 && line.front() == line.back() && (line.front() == u'\'' || line.front() == u'"');
    return quoted ? line.sliced(1, line.size() - 2) : line;
}

// Reads the lines of a folder's file for one drawing in it.
class FolderLines
{
public:
    explicit FolderLines(QString drawing) : _drawing(std::move(drawing)) {}

    UT_Result<void> take(const QString& line)
    {
        if (line.isEmpty() || line.startsWith(u'#'))
            return {};
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            _applies = isNamedBy(_drawing, line.sliced(1, line.size() - 2).trimmed());
            return {};
        }
        // Lines for other drawings are checked too.
        ObjectWishes others;
        return takeObjectWords(_applies ? wishes : others, withoutQuotes(line));
    }

    ObjectWishes wishes;

private:
    QString _drawing;
    bool _applies = true;
};

} // namespace

void takeValuesFromNames(DIO_Drawing& drawing)
{
    for (DIO_Layer& layer : drawing.layers) {
        QStringList words = layer.name.split(u' ', Qt::SkipEmptyParts);
        QStringList values;
        while (words.size() > 1 && isValue(words.last()))
            values.prepend(words.takeLast());
        if (values.isEmpty())
            continue;
        layer.name = words.join(u' ');
        layer.values = values + layer.values;
    }
}

QString folderWishesFile(const QString& drawing)
{
    return QFileInfo(drawing).dir().filePath(QStringLiteral("vallorin.objects"));
}

UT_Result<ObjectWishes> readFolderWishes(const QString& drawing)
{
    const QString path = folderWishesFile(drawing);
    if (!QFileInfo(path).isFile())
        return ObjectWishes();
    QFile file(path);
    if (const UT_Result<void> opened = UT_openFile(file); !opened)
        return UT_Error{QStringLiteral("%1: %2").arg(path, opened.error().text)};
    const QByteArray bytes = file.read(kMaxBytes + 1);
    if (bytes.size() > kMaxBytes)
        return UT_Error{QStringLiteral("%1: it is larger than 1 MiB, the most that is read of it").arg(path)};
    FolderLines lines(QFileInfo(drawing).fileName());
    int number = 0;
    for (const QString& line : QString::fromUtf8(bytes).split(u'\n')) {
        ++number;
        if (const UT_Result<void> taken = lines.take(line.trimmed()); !taken)
            return UT_Error{
                QStringLiteral("%1, line %2: %3").arg(path, QString::number(number), taken.error().sentence())};
    }
    return std::move(lines.wishes);
}

ObjectSettings ownSettings(const QStringList& values, const ObjectWishes& folder, int number, const QString& name,
                           ObjectRole role, QStringList& warnings)
{
    ObjectSettings own;
    for (const QString& value : values)
        if (const UT_Result<void> taken = takeObjectWord(own, value); !taken)
            warnings.append(QStringLiteral("the values of \"%1\": %2").arg(name, taken.error().sentence()));
    ObjectSettings all = merged(own, wishesFor(folder, number, {name}));
    if (role == ObjectRole::RELIEF && !all.relief)
        all.relief = reliefCalled(name);
    return all;
}
