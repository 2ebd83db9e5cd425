// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reading the tree, one token after the other, with a count of everything that a hostile file could make grow.
#include "QuarvelDrawingIO/private/DIO_XmlTree.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

constexpr int kMaxDepth = 512;
constexpr int kMaxElements = 2'000'000;
constexpr qint64 kMaxCharacters = 192 * 1024 * 1024;

// How many characters all entities of a file may expand to. Editors use them for namespaces and for shared styles.
constexpr qint64 kMaxEntityCharacters = 32 * 1024 * 1024;
constexpr qint64 kMaxCharactersPerEntity = 64 * 1024;

QString nameOf(const QXmlStreamAttribute& attribute, QStringView svgNamespace)
{
    const QStringView space = attribute.namespaceUri();
    const QStringView name = attribute.name();
    if (space.isEmpty() || space == svgNamespace)
        return name.toString();
    if (space == u"http://www.w3.org/1999/xlink")
        return name == u"href" ? QStringLiteral("xlink:href") : QString();
    if (space == u"http://www.inkscape.org/namespaces/inkscape")
        return "inkscape:" + name.toString();
    if (space.startsWith(u"http://ns.adobe.com/AdobeIllustrator/"))
        return "ai:" + name.toString();
    if (space.startsWith(u"http://www.bohemiancoding.com/sketch"))
        return "sketch:" + name.toString();
    if (space == u"http://www.w3.org/XML/1998/namespace")
        return "xml:" + name.toString();
    return {};
}

class TreeReader
{
public:
    TreeReader(const QByteArray& data, const QString& path) : _xml(data), _path(path)
    {
        const qint64 references = std::max<qint64>(1, data.count('&'));
        const qint64 limit = std::clamp<qint64>(kMaxEntityCharacters / references, 16, kMaxCharactersPerEntity);
        _xml.setEntityExpansionLimit(static_cast<int>(limit));
    }

    UT_Result<DIO_XmlTree> read()
    {
        if (!findRoot())
            return failure();
        DIO_XmlTree tree;
        tree.root = startedElement();
        std::vector<DIO_XmlNode*> open{&tree.root};
        while (!open.empty() && _problem.isEmpty() && !_xml.hasError())
            readToken(open);
        readEpilogue();
        if (!_problem.isEmpty() || _xml.hasError())
            return failure();
        return tree;
    }

private:
    bool findRoot()
    {
        while (!_xml.atEnd() && _xml.readNext() != QXmlStreamReader::StartElement)
            ;
        if (_xml.hasError())
            return false;
        if (!_xml.isStartElement() || _xml.name() != u"svg") {
            _problem =
                QStringLiteral("is not an SVG drawing: its outermost element is <%1>, not <svg>").arg(_xml.name());
            return false;
        }
        _namespace = _xml.namespaceUri().toString();
        return true;
    }

    void readToken(std::vector<DIO_XmlNode*>& open)
    {
        switch (_xml.readNext()) {
        case QXmlStreamReader::StartElement:
            startElement(open);
            break;
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            addText(*open.back());
            break;
        default:
            break;
        }
    }

    void startElement(std::vector<DIO_XmlNode*>& open)
    {
        if (++_elements > kMaxElements)
            _problem = QStringLiteral("has more than %1 elements").arg(kMaxElements);
        else if (open.size() >= kMaxDepth)
            _problem = QStringLiteral("nests elements more than %1 deep").arg(kMaxDepth);
        else if (_xml.namespaceUri() != _namespace)
            _xml.skipCurrentElement();
        else
            open.push_back(&open.back()->children.emplace_back(startedElement()));
    }

    DIO_XmlNode startedElement()
    {
        DIO_XmlNode node;
        node.name = _xml.name().toString();
        const QXmlStreamAttributes attributes = _xml.attributes();
        node.attributes.reserve(static_cast<std::size_t>(attributes.size()));
        for (const QXmlStreamAttribute& attribute : attributes) {
            QString name = nameOf(attribute, _namespace);
            if (name.isEmpty())
                continue;
            count(attribute.value().size());
            node.attributes.emplace_back(std::move(name), attribute.value().toString());
        }
        return node;
    }

    void addText(DIO_XmlNode& parent)
    {
        count(_xml.text().size());
        // White space between elements matters only inside text.
        if (_xml.isWhitespace() && parent.name != u"text" && parent.name != u"tspan")
            return;
        DIO_XmlNode text;
        text.text = _xml.text().toString();
        parent.children.push_back(std::move(text));
    }

    void count(qint64 characters)
    {
        _characters += characters;
        if (_characters > kMaxCharacters)
            _problem = QStringLiteral("expands to more than %1 million characters").arg(kMaxCharacters / 1'000'000);
    }

    // What follows the root must be well-formed too, or the file is damaged.
    void readEpilogue()
    {
        while (_problem.isEmpty() && !_xml.atEnd())
            _xml.readNext();
    }

    UT_Error failure() const
    {
        if (!_problem.isEmpty())
            return {
                QStringLiteral("%1, line %2: the file %3").arg(_path, QString::number(_xml.lineNumber()), _problem)};
        return {QStringLiteral(
                    "%1, line %2: this is not well-formed XML (%3); save the drawing again from the program that "
                    "made it")
                    .arg(_path, QString::number(_xml.lineNumber()),
                         _xml.errorString().remove(QRegularExpression(QStringLiteral("\\.\\s*$"))))};
    }

    QXmlStreamReader _xml;
    QString _path;
    QString _namespace;
    QString _problem;
    int _elements = 0;
    qint64 _characters = 0;
};

void indexBelow(const DIO_XmlNode& node, QHash<QString, const DIO_XmlNode*>& byId)
{
    QString id = node.attribute(QLatin1String("id"));
    if (id.isEmpty())
        id = node.attribute(QLatin1String("xml:id"));
    if (!id.isEmpty() && !byId.contains(id))
        byId.insert(id, &node);
    for (const DIO_XmlNode& child : node.children)
        indexBelow(child, byId);
}

} // namespace

QString DIO_XmlNode::attribute(QLatin1String attributeName) const
{
    for (const auto& [key, value] : attributes)
        if (key == attributeName)
            return value;
    return {};
}

QString DIO_XmlNode::link() const
{
    const QString plain = attribute(QLatin1String("href"));
    return (plain.isNull() ? attribute(QLatin1String("xlink:href")) : plain).trimmed();
}

QString DIO_XmlNode::textContent() const
{
    if (isText())
        return text;
    QString all;
    for (const DIO_XmlNode& child : children)
        all += child.textContent();
    return all;
}

void DIO_XmlTree::index()
{
    byId.clear();
    indexBelow(root, byId);
}

const DIO_XmlNode* DIO_XmlTree::find(QStringView reference) const
{
    return reference.startsWith(u'#') ? byId.value(reference.mid(1).toString()) : nullptr;
}

UT_Result<DIO_XmlTree> DIO_readXmlTree(const QByteArray& data, const QString& path)
{
    return TreeReader(data, path).read();
}
