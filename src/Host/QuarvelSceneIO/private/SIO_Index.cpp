// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads and writes the index as XML.
#include "QuarvelSceneIO/private/SIO_Index.h"

#include "QuarvelPersistentObj/PO_XmlReading.h"
#include "QuarvelSceneIO/private/SIO_JournalText.h"
#include "QuarvelSceneIO/private/SIO_PathInside.h"

#include <QCoreApplication>
#include <QSet>

const QString kSIO_mainFile = QStringLiteral("scene.xml");

namespace {

constexpr int kVersion = 1;

const QString kElementRoot = QStringLiteral("quarvelScene");
const QString kElementScene = QStringLiteral("scene");
const QString kElementPalettes = QStringLiteral("palettes");
const QString kElementPalette = QStringLiteral("palette");
const QString kElementElements = QStringLiteral("elements");
const QString kElementElement = QStringLiteral("element");
const QString kElementDrawing = QStringLiteral("drawing");
const QString kElementSources = QStringLiteral("sources");
const QString kElementSource = QStringLiteral("source");
const QString kElementFile = QStringLiteral("file");
const QString kAttributePath = QStringLiteral("path");
const QString kAttributeSource = QStringLiteral("source");
const QString kAttributeObjects = QStringLiteral("objects");
const QString kAttributeDigest = QStringLiteral("digest");
const QString kAttributeLayer = QStringLiteral("layer");
const QString kAttributeReason = QStringLiteral("reason");
const QString kAttributeId = QStringLiteral("id");
const QString kAttributeInScene = QStringLiteral("inScene");
const QString kAttributeModule = QStringLiteral("module");
const QString kAttributeFolder = QStringLiteral("folder");
const QString kAttributeName = QStringLiteral("name");
const QString kAttributeFile = QStringLiteral("file");

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SIO_Index)
};

// Reads one index; refuses repeated files and names.
class Reader
{
public:
    Reader(const SIO_XmlContext& context, SIO_Index& index) : _context(context), _index(index) {}

    UT_Result<void> readPalettes(const QDomElement& list)
    {
        _context.keepOtherAttributes(list, {}, _index.unknownOfPalettes);
        for (QDomElement child = list.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() != kElementPalette)
                _context.keepElement(child, _index.unknownOfPalettes);
            else if (auto read = readPalette(child); !read)
                return read;
        }
        return {};
    }

    UT_Result<void> readElements(const QDomElement& list)
    {
        _context.keepOtherAttributes(list, {}, _index.unknownOfElements);
        for (QDomElement child = list.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() != kElementElement)
                _context.keepElement(child, _index.unknownOfElements);
            else if (auto read = readElement(child); !read)
                return read;
        }
        return {};
    }

    void readSources(const QDomElement& list)
    {
        _context.keepOtherAttributes(list, {}, _index.unknownOfSources);
        for (QDomElement child = list.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() == kElementSource)
                readSource(child);
            else
                _context.keepElement(child, _index.unknownOfSources);
        }
    }

private:
    void readSource(const QDomElement& element)
    {
        SIO_Index::Source source;
        source.objects = PO_attribute(element, kAttributeObjects);
        source.digest = PO_attribute(element, kAttributeDigest);
        _context.keepOtherAttributes(element, {kAttributeObjects, kAttributeDigest}, source.unknown);
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() == kElementFile)
                source.files.push_back(sourceFileOf(child));
            else
                _context.keepElement(child, source.unknown);
        }
        _index.sources.push_back(std::move(source));
    }

    SIO_Index::SourceFile sourceFileOf(const QDomElement& element) const
    {
        SIO_Index::SourceFile file{PO_attribute(element, kAttributePath)};
        _context.keepOtherAttributes(element, {kAttributePath}, file.unknown);
        _context.keepAllElements(element, file.unknown);
        return file;
    }

    UT_Result<void> readPalette(const QDomElement& element)
    {
        SIO_Index::Palette palette;
        palette.line = element.lineNumber();
        if (!palette.id.parseXml(PO_attribute(element, kAttributeId)) || palette.id.isNull())
            return _context.error(element, Texts::tr("the palette has no identifier of 16 hexadecimal digits"));
        palette.inScene = PO_boolAttribute(element, kAttributeInScene).value_or(true);
        _context.keepOtherAttributes(element, {kAttributeId, kAttributeInScene}, palette.unknown);
        _context.keepAllElements(element, palette.unknown);
        if (auto taken = takePath(element, palette.path()); !taken)
            return taken;
        _index.palettes.push_back(std::move(palette));
        return {};
    }

    UT_Result<void> readElement(const QDomElement& element)
    {
        SIO_Index::Element read;
        read.line = element.lineNumber();
        read.module = PO_attribute(element, kAttributeModule);
        read.folder = PO_attribute(element, kAttributeFolder);
        if (_modules.contains(read.module))
            return _context.error(element, Texts::tr("\"%1\" comes twice").arg(read.module));
        _modules.insert(read.module);
        read.source = PO_intAttribute(element, kAttributeSource).value_or(0);
        read.layer = PO_attribute(element, kAttributeLayer);
        read.reason = PO_attribute(element, kAttributeReason);
        _context.keepOtherAttributes(
            element, {kAttributeModule, kAttributeFolder, kAttributeSource, kAttributeLayer, kAttributeReason},
            read.unknown);
        QSet<QString> names;
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
            if (child.tagName() != kElementDrawing)
                _context.keepElement(child, read.unknown);
            else if (auto drawing = readDrawing(child, read, names); !drawing)
                return drawing;
        }
        _index.elements.push_back(std::move(read));
        return {};
    }

    UT_Result<void> readDrawing(const QDomElement& element, SIO_Index::Element& owner, QSet<QString>& names)
    {
        SIO_Index::Drawing drawing;
        drawing.line = element.lineNumber();
        drawing.name = PO_attribute(element, kAttributeName);
        drawing.file = PO_attribute(element, kAttributeFile);
        if (names.contains(drawing.name))
            return _context.error(element, Texts::tr("\"%1\" comes twice").arg(drawing.name));
        names.insert(drawing.name);
        if (owner.folder.contains(u'/') || drawing.file.contains(u'/'))
            return _context.error(element, Texts::tr("the names of folders and files have no slash"));
        if (auto taken = takePath(element, owner.pathOf(drawing)); !taken)
            return taken;
        _context.keepOtherAttributes(element, {kAttributeName, kAttributeFile}, drawing.unknown);
        _context.keepAllElements(element, drawing.unknown);
        owner.drawings.push_back(std::move(drawing));
        return {};
    }

    UT_Result<void> takePath(const QDomElement& element, const QString& path)
    {
        if (const auto inside = SIO_pathInside(QString(), path); !inside)
            return _context.error(element, inside.error().text);
        if (!SIO_isScenePath(path))
            return _context.error(element,
                                  Texts::tr("\"%1\" is not a drawing's file, whose name ends in .kvr").arg(path));
        if (_paths.contains(path.toLower()))
            return _context.error(element, Texts::tr("the file \"%1\" comes twice").arg(path));
        _paths.insert(path.toLower());
        return {};
    }

    const SIO_XmlContext& _context;
    SIO_Index& _index;
    QSet<QString> _modules;
    QSet<QString> _paths;
};

UT_Result<void> readRootChild(const QDomElement& child, Reader& reader, SIO_Index& index, const SIO_XmlContext& context)
{
    if (child.tagName() == kElementPalettes)
        return reader.readPalettes(child);
    if (child.tagName() == kElementElements)
        return reader.readElements(child);
    if (child.tagName() == kElementSources) {
        reader.readSources(child);
        return {};
    }
    if (child.tagName() != kElementScene)
        context.keepElement(child, index.unknown);
    else if (index.scene.isNull())
        index.scene = child;
    else
        return context.error(child, Texts::tr("a second scene stands in one file"));
    return {};
}

void writePalettes(const SIO_Index& index, PO_XmlWriter& writer)
{
    writer.startElement(kElementPalettes);
    index.unknownOfPalettes.writeAttributes(writer);
    for (const SIO_Index::Palette& palette : index.palettes) {
        writer.startElement(kElementPalette);
        writer.attribute(kAttributeId, palette.id.AsString().ToQString());
        if (!palette.inScene)
            writer.attribute(kAttributeInScene, false);
        palette.unknown.writeAttributes(writer);
        palette.unknown.writeElements(writer);
        writer.endElement();
    }
    index.unknownOfPalettes.writeElements(writer);
    writer.endElement();
}

void writeElement(const SIO_Index::Element& element, PO_XmlWriter& writer)
{
    writer.startElement(kElementElement);
    writer.attribute(kAttributeModule, element.module);
    writer.attribute(kAttributeFolder, element.folder);
    if (element.source > 0) {
        writer.attribute(kAttributeSource, element.source);
        writer.attribute(kAttributeLayer, element.layer);
    }
    if (!element.reason.isEmpty())
        writer.attribute(kAttributeReason, element.reason);
    element.unknown.writeAttributes(writer);
    for (const SIO_Index::Drawing& drawing : element.drawings) {
        writer.startElement(kElementDrawing);
        writer.attribute(kAttributeName, drawing.name);
        writer.attribute(kAttributeFile, drawing.file);
        drawing.unknown.writeAttributes(writer);
        drawing.unknown.writeElements(writer);
        writer.endElement();
    }
    element.unknown.writeElements(writer);
    writer.endElement();
}

// A scene of which nobody knows where its drawings came from has no such list.
void writeSources(const SIO_Index& index, PO_XmlWriter& writer)
{
    if (index.sources.empty() && index.unknownOfSources.isEmpty())
        return;
    writer.startElement(kElementSources);
    index.unknownOfSources.writeAttributes(writer);
    for (const SIO_Index::Source& source : index.sources) {
        writer.startElement(kElementSource);
        if (!source.objects.isEmpty())
            writer.attribute(kAttributeObjects, source.objects);
        if (!source.digest.isEmpty())
            writer.attribute(kAttributeDigest, source.digest);
        source.unknown.writeAttributes(writer);
        for (const SIO_Index::SourceFile& file : source.files) {
            writer.startElement(kElementFile);
            writer.attribute(kAttributePath, file.path);
            file.unknown.writeAttributes(writer);
            file.unknown.writeElements(writer);
            writer.endElement();
        }
        source.unknown.writeElements(writer);
        writer.endElement();
    }
    index.unknownOfSources.writeElements(writer);
    writer.endElement();
}

} // namespace

QString SIO_Index::Palette::path() const
{
    return QStringLiteral("palettes/%1.xml").arg(QLatin1String(id.AsString().c_str()));
}

QString SIO_Index::Element::pathOf(const Drawing& drawing) const
{
    return QStringLiteral("elements/") + folder + u'/' + drawing.file;
}

QStringList SIO_Index::paths() const
{
    QStringList all;
    for (const Palette& palette : palettes)
        all << palette.path();
    for (const Element& element : elements)
        for (const Drawing& drawing : element.drawings)
            all << element.pathOf(drawing);
    return all;
}

bool SIO_isMainFile(const QDomElement& root)
{
    return root.tagName() == kElementRoot;
}

UT_Result<SIO_Index> SIO_readIndex(const QDomElement& root, const SIO_XmlContext& context)
{
    if (!SIO_isMainFile(root))
        return context.error(root, Texts::tr("<%1> is not a scene").arg(root.tagName()));
    context.checkVersion(root, kVersion);
    SIO_Index index;
    context.keepOtherAttributes(root, {kPIO_atributeVersion}, index.unknown);
    Reader reader(context, index);
    for (QDomElement child = root.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        if (const auto read = readRootChild(child, reader, index, context); !read)
            return read.error();
    if (index.scene.isNull())
        return context.error(root, Texts::tr("there is no <scene>"));
    return index;
}

QByteArray SIO_writeMainFile(const SIO_Index& index, const PIO_XmlWritable& scene)
{
    return SIO_document([&](PO_XmlWriter& writer) {
        writer.startElement(kElementRoot);
        writer.attribute(kPIO_atributeVersion, kVersion);
        index.unknown.writeAttributes(writer);
        writePalettes(index, writer);
        writer.startElement(kElementElements);
        index.unknownOfElements.writeAttributes(writer);
        for (const SIO_Index::Element& element : index.elements)
            writeElement(element, writer);
        index.unknownOfElements.writeElements(writer);
        writer.endElement();
        writeSources(index, writer);
        scene.writeXml(writer);
        index.unknown.writeElements(writer);
        writer.endElement();
    });
}
