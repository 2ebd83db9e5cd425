// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Recognising layers by the marks of the common vector editors.
#include "QuarvelDrawingIO/private/DIO_SvgLayers.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

bool hasChild(const DIO_XmlNode& node, QStringView name)
{
    return std::any_of(node.children.begin(), node.children.end(),
                       [&](const DIO_XmlNode& child) { return child.name == name; });
}

// One editor marks a layer by an empty metadata element in it.
bool hasLayerMetadata(const DIO_XmlNode& node)
{
    return std::any_of(node.children.begin(), node.children.end(), [](const DIO_XmlNode& child) {
        return child.name == u"metadata" && child.attribute(QLatin1String("id")).contains(u"Corel-Layer");
    });
}

QStringList valuesOf(const DIO_XmlNode& node)
{
    constexpr QLatin1String kPrefix("data-vallorin-");
    QStringList values;
    for (const auto& [name, value] : node.attributes)
        if (name.startsWith(kPrefix, Qt::CaseInsensitive))
            values.append(name.mid(kPrefix.size()) + u'=' + value.trimmed());
    return values;
}

// What has values of its own is meant to be an object.
bool isDeclaredLayer(const DIO_XmlNode& node, bool topLevel)
{
    static const QRegularExpression generatedId(
        QStringLiteral("^(Layer_[0-9]+(_[0-9]+_)?|Layer_x0020_[0-9]+|layer[0-9]+)$"));
    if (node.name != u"g")
        return false;
    return node.attribute(QLatin1String("inkscape:groupmode")) == u"layer" ||
           node.attribute(QLatin1String("ai:layer")) == u"yes" ||
           node.attribute(QLatin1String("sketch:type")) == u"MSLayerGroup" ||
           (node.attribute(QLatin1String("class")) == u"layer" && hasChild(node, u"title")) || hasLayerMetadata(node) ||
           (topLevel && generatedId.match(node.attribute(QLatin1String("id"))).hasMatch()) || !valuesOf(node).empty();
}

// Editors that allow any layer name write what an id cannot hold as "_x0020_".
QString decodedId(const QString& id)
{
    static const QRegularExpression escape(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
    QString decoded;
    qsizetype position = 0;
    for (auto matches = escape.globalMatch(id); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        decoded += QStringView(id).mid(position, match.capturedStart() - position);
        decoded += QChar(match.captured(1).toUShort(nullptr, 16));
        position = match.capturedEnd();
    }
    return decoded + id.mid(position);
}

QString titleOf(const DIO_XmlNode& node)
{
    for (const DIO_XmlNode& child : node.children)
        if (child.name == u"title")
            return child.textContent();
    return {};
}

QString nameOf(const DIO_XmlNode& node, qsizetype number)
{
    const QString candidates[] = {node.attribute(QLatin1String("inkscape:label")), titleOf(node),
                                  node.attribute(QLatin1String("data-name")),
                                  decodedId(node.attribute(QLatin1String("id")))};
    for (const QString& candidate : candidates)
        if (QString name = candidate.simplified(); !name.isEmpty())
            return name;
    return QStringLiteral("Layer %1").arg(number);
}

class LayerFinder
{
public:
    explicit LayerFinder(DIO_Grouping grouping) : _grouping(grouping) {}

    void visitChildren(const DIO_XmlNode& parent, bool topLevel)
    {
        for (const DIO_XmlNode& child : parent.children)
            visit(child, topLevel);
    }

    DIO_SvgLayers layers;

private:
    void visit(const DIO_XmlNode& node, bool topLevel)
    {
        const bool isLayer = _grouping == DIO_Grouping::GROUPS ? node.name == u"g" && !isMereBranch(node)
                                                               : isDeclaredLayer(node, topLevel);
        if (isLayer) {
            layers.indexOf.insert(&node, static_cast<int>(layers.names.size()));
            layers.names.append(nameOf(node, layers.names.size() + 1));
            layers.values.push_back(valuesOf(node));
        } else if (node.name == u"switch") {
            if (const DIO_XmlNode* branch = DIO_shownBranch(node)) {
                _branch = branch;
                visit(*branch, topLevel);
            }
        } else if (isMereBranch(node)) {
            visitChildren(node, topLevel);
        } else if (_grouping == DIO_Grouping::AUTO && (node.name == u"g" || node.name == u"a" || node.name == u"svg")) {
            visitChildren(node, false);
        }
    }

    // The branch of a <switch> stands in its place, so its groups count as the parent's.
    bool isMereBranch(const DIO_XmlNode& node) const { return &node == _branch; }

    DIO_Grouping _grouping;
    const DIO_XmlNode* _branch = nullptr;
};

} // namespace

DIO_SvgLayers DIO_findLayers(const DIO_XmlNode& root, DIO_Grouping grouping)
{
    LayerFinder finder(grouping);
    if (grouping != DIO_Grouping::ONE)
        finder.visitChildren(root, true);
    return std::move(finder.layers);
}

const DIO_XmlNode* DIO_shownBranch(const DIO_XmlNode& switchNode)
{
    for (const DIO_XmlNode& child : switchNode.children) {
        const QString languages = child.attribute(QLatin1String("systemLanguage"));
        if (child.isText() || child.name == u"foreignObject" ||
            !child.attribute(QLatin1String("requiredExtensions")).isEmpty() ||
            (!languages.isEmpty() && !languages.startsWith(u"en")))
            continue;
        return &child;
    }
    return nullptr;
}
