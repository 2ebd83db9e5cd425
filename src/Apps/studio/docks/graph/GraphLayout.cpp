// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows, then the order within them, then the places; at last, nodes that stood elsewhere go back there.
#include "studio/docks/graph/GraphLayout.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

constexpr double kNodeWidth = 156.0;
constexpr double kNodeHeight = 46.0;
constexpr double kPortSpacing = 18.0;
constexpr double kColumnGap = 22.0;
constexpr double kRowGap = 52.0;
constexpr int kOrderSweeps = 6;
constexpr int kPlaceSweeps = 8;

struct Edge
{
    int source;
    int target;
    double sourceOffset; // of the port from the middle of its node
    double targetOffset;
};

struct Node
{
    const MO_Module* module = nullptr;
    QSizeF size;
    std::vector<int> in;  // edges, in the order of the ports
    std::vector<int> out; // edges
    int level = 0;        // rows above the lowest
    double x = 0.0;       // of the middle
};

double portOffset(const QSizeF& size, bool isInput, unsigned index, unsigned count)
{
    return portPlace(QRectF(QPointF(-size.width() / 2, 0), size), isInput, index, count).x();
}

class Layouter
{
public:
    explicit Layouter(const XUGroup& group)
    {
        for (const auto& module : group.modules())
            addNode(*module);
        if (group.group()) {
            addNode(group.entry());
            addNode(group.exit());
        }
        for (std::size_t i = 0; i < _nodes.size(); ++i)
            addEdges(static_cast<int>(i));
    }

    GraphLayout result()
    {
        assignLevels();
        fillRows();
        orderRows();
        placeRows();
        return boxes();
    }

private:
    Node& node(int index) { return _nodes[static_cast<std::size_t>(index)]; }
    const Edge& edge(int index) const { return _edges[static_cast<std::size_t>(index)]; }

    void addNode(const MO_Module& module)
    {
        _indices.insert(&module, static_cast<int>(_nodes.size()));
        Node added;
        added.module = &module;
        added.size = nodeSize(module);
        _nodes.push_back(added);
    }

    void addEdges(int target)
    {
        const MO_Module& module = *node(target).module;
        for (unsigned i = 0; i < module.nInPorts(); ++i) {
            const MO_Port* const source = module.inPort(i)->srcPort();
            const int from = source ? _indices.value(source->module(), -1) : -1;
            if (from < 0)
                continue;
            const int index = static_cast<int>(_edges.size());
            _edges.push_back({from, target,
                              portOffset(node(from).size, false, source->index(), source->node()->nOutPorts()),
                              portOffset(node(target).size, true, i, module.nInPorts())});
            node(target).in.push_back(index);
            node(from).out.push_back(index);
        }
    }

    static bool isBorder(const Node& node) { return dynamic_cast<const MO_GroupBorderModule*>(node.module); }
    static bool isLinked(const Node& node) { return !node.in.empty() || !node.out.empty() || isBorder(node); }

    // A node's level is known when those of all its consumers are; circles there are none.
    void assignLevels()
    {
        std::vector<std::size_t> waiting;
        std::vector<int> ready;
        for (std::size_t i = 0; i < _nodes.size(); ++i) {
            waiting.push_back(_nodes[i].out.size());
            if (_nodes[i].out.empty())
                ready.push_back(static_cast<int>(i));
        }
        while (!ready.empty()) {
            const int next = ready.back();
            ready.pop_back();
            for (const int in : node(next).in) {
                Node& source = node(edge(in).source);
                source.level = std::max(source.level, node(next).level + 1);
                if (--waiting[static_cast<std::size_t>(edge(in).source)] == 0)
                    ready.push_back(edge(in).source);
            }
        }
        raiseEntry();
    }

    // The entry stands above everything, whoever uses it.
    void raiseEntry()
    {
        int highest = 0;
        Node* entry = nullptr;
        for (Node& each : _nodes) {
            const auto* border = dynamic_cast<const MO_GroupBorderModule*>(each.module);
            if (border && border->side() == MO_GroupBorderModule::Side::ENTRY)
                entry = &each;
            else
                highest = std::max(highest, each.level);
        }
        if (entry)
            entry->level = highest + 1;
    }

    void fillRows()
    {
        std::vector<bool> seen(_nodes.size());
        for (std::size_t i = 0; i < _nodes.size(); ++i)
            if (_nodes[i].out.empty() && isLinked(_nodes[i]))
                visit(static_cast<int>(i), seen);
    }

    // Inputs first, in the order of the ports, which is nearly always the order without crossings. The way down may be
    // as long as the graph, so that it is kept here and not on the stack.
    void visit(int root, std::vector<bool>& seen)
    {
        std::vector<std::pair<int, std::size_t>> way{{root, 0}};
        seen[static_cast<std::size_t>(root)] = true;
        while (!way.empty()) {
            auto& [index, next] = way.back();
            if (next == node(index).in.size()) {
                rowOf(index).push_back(index);
                way.pop_back();
                continue;
            }
            const int source = edge(node(index).in[next++]).source;
            if (!seen[static_cast<std::size_t>(source)]) {
                seen[static_cast<std::size_t>(source)] = true;
                way.emplace_back(source, 0);
            }
        }
    }

    std::vector<int>& rowOf(int index)
    {
        const auto level = static_cast<std::size_t>(node(index).level);
        if (_rows.size() <= level)
            _rows.resize(level + 1);
        return _rows[level];
    }

    // Where the links of one side would have the node's middle; the node's own place when it has none.
    double wanted(const Node& each, bool above)
    {
        const std::vector<int>& links = above ? each.in : each.out;
        if (links.empty())
            return each.x;
        double sum = 0.0;
        for (const int index : links) {
            const Edge& link = edge(index);
            sum += above ? node(link.source).x + link.sourceOffset - link.targetOffset
                         : node(link.target).x + link.targetOffset - link.sourceOffset;
        }
        return sum / static_cast<double>(links.size());
    }

    void pack(std::vector<int>& row)
    {
        std::vector<double> places;
        places.reserve(row.size());
        for (const int index : row)
            places.push_back(node(index).x);
        place(row, places);
    }

    void orderRows()
    {
        for (auto& row : _rows) {
            double x = 0.0;
            for (const int index : row) {
                node(index).x = x + node(index).size.width() / 2;
                x += node(index).size.width() + kColumnGap;
            }
        }
        for (int sweep = 0; sweep < kOrderSweeps; ++sweep)
            forEachRow(sweep % 2 == 0, [&](std::vector<int>& row, bool above) {
                std::vector<std::pair<double, int>> keys;
                keys.reserve(row.size());
                for (const int index : row)
                    keys.emplace_back(wanted(node(index), above), index);
                std::ranges::stable_sort(keys, {}, &std::pair<double, int>::first);
                std::ranges::transform(keys, row.begin(), &std::pair<double, int>::second);
                pack(row);
            });
    }

    void placeRows()
    {
        for (int sweep = 0; sweep < kPlaceSweeps; ++sweep)
            forEachRow(sweep % 2 == 0, [&](std::vector<int>& row, bool above) {
                std::vector<double> places;
                places.reserve(row.size());
                for (const int index : row)
                    places.push_back(wanted(node(index), above));
                place(row, places);
            });
    }

    // Downwards the rows follow what is above them, upwards what is below.
    template<typename Function>
    void forEachRow(bool downwards, const Function& function)
    {
        if (downwards)
            for (auto row = _rows.rbegin(); row != _rows.rend(); ++row)
                function(*row, true);
        else
            for (auto& row : _rows)
                function(row, false);
    }

    // Pool adjacent violators: neighbours that would overlap become one block, which stands where it is best on
    // average.
    void place(const std::vector<int>& row, const std::vector<double>& places)
    {
        struct Block
        {
            double sum;
            int count;
            double mean() const { return sum / count; }
        };
        std::vector<double> offsets;
        std::vector<Block> blocks;
        double offset = 0.0;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0)
                offset += (node(row[i - 1]).size.width() + node(row[i]).size.width()) / 2 + kColumnGap;
            offsets.push_back(offset);
            blocks.push_back({places[i] - offset, 1});
            while (blocks.size() > 1 && blocks[blocks.size() - 2].mean() > blocks.back().mean()) {
                const Block last = blocks.back();
                blocks.pop_back();
                blocks.back().sum += last.sum;
                blocks.back().count += last.count;
            }
        }
        std::size_t i = 0;
        for (const Block& block : blocks)
            for (int n = 0; n < block.count; ++n, ++i)
                node(row[i]).x = block.mean() + offsets[i];
    }

    GraphLayout boxes()
    {
        GraphLayout boxes;
        QRectF all;
        const auto top = [&](int level) {
            return (static_cast<double>(_rows.size()) - 1.0 - level) * (kNodeHeight + kRowGap);
        };
        for (const auto& row : _rows)
            for (const int index : row) {
                const Node& each = node(index);
                const QRectF box(QPointF(each.x - each.size.width() / 2, top(each.level)), each.size);
                boxes.insert(each.module, box);
                all |= box;
            }
        QPointF corner(all.isNull() ? 0.0 : all.right() + 2 * kColumnGap, 0.0);
        const double bottom = std::max(all.bottom(), 3 * (kNodeHeight + kColumnGap));
        double widest = 0.0;
        for (const Node& each : _nodes) {
            if (isLinked(each))
                continue;
            if (corner.y() + kNodeHeight > bottom) {
                corner = QPointF(corner.x() + widest + kColumnGap, 0.0);
                widest = 0.0;
            }
            boxes.insert(each.module, QRectF(corner, each.size));
            widest = std::max(widest, each.size.width());
            corner.ry() += kNodeHeight + kColumnGap;
        }
        return boxes;
    }

    QHash<const MO_Module*, int> _indices;
    std::vector<Node> _nodes;
    std::vector<Edge> _edges;
    std::vector<std::vector<int>> _rows; // by levels
};

// How far new nodes have to go so that they are again where the layout has them beside the nodes that they are linked
// to, which stand elsewhere.
NodePlaces waysToNewNodes(const XUGroup& group, const GraphLayout& layout, const NodePlaces& standing)
{
    NodePlaces ways;
    QHash<const MO_Module*, int> counts;
    const auto follow = [&](const MO_Module* one, const MO_Module* other) {
        const auto place = standing.constFind(other);
        if (place == standing.constEnd() || standing.contains(one) || !layout.contains(other))
            return;
        ways[one] += *place - layout[other].center();
        ++counts[one];
    };
    const auto followLinks = [&](const MO_Module& module) {
        for (unsigned i = 0; i < module.nInPorts(); ++i)
            if (const MO_Port* const source = module.inPort(i)->srcPort()) {
                follow(&module, source->module());
                follow(source->module(), &module);
            }
    };
    for (const auto& module : group.modules())
        followLinks(*module);
    followLinks(group.exit());
    for (auto way = ways.begin(); way != ways.end(); ++way)
        *way /= counts[way.key()];
    return ways;
}

// Puts a new node where it covers no other one: as far to the right as it has to be.
void giveRoom(GraphLayout& layout, const MO_Module& module, const QPointF& way)
{
    QRectF box = layout.take(&module).translated(way);
    const auto inTheWay = [&] {
        return std::ranges::find_if(std::as_const(layout), [&](const QRectF& other) { return other.intersects(box); });
    };
    for (auto other = inTheWay(); other != std::as_const(layout).end(); other = inTheWay())
        box.moveLeft(other->right() + kColumnGap);
    layout.insert(&module, box);
}

} // namespace

QSizeF nodeSize(const MO_Module& module)
{
    const unsigned ports = std::max(module.nInPorts(), module.nOutPorts());
    return {std::max(kNodeWidth, (ports + 1) * kPortSpacing), kNodeHeight};
}

QPointF portPlace(const QRectF& box, bool isInput, unsigned index, unsigned count)
{
    const double x = box.left() + box.width() * (index + 1.0) / (count + 1.0);
    return {x, isInput ? box.top() : box.bottom()};
}

GraphLayout layoutGraph(const XUGroup& group, const NodePlaces& standing)
{
    GraphLayout layout = Layouter(group).result();
    const NodePlaces ways = waysToNewNodes(group, layout, standing);
    for (auto node = layout.begin(); node != layout.end(); ++node) {
        if (const auto& place = node.key()->graphPlace())
            node->moveCenter({place->x, place->y});
        else if (standing.contains(node.key()))
            node->moveCenter(standing[node.key()]);
    }
    const bool isSeenFirst =
        std::ranges::none_of(group.modules(), [&](const auto& each) { return standing.contains(each.get()); });
    if (!isSeenFirst)
        for (const auto& module : group.modules())
            if (!module->graphPlace() && !standing.contains(module.get()))
                giveRoom(layout, *module, ways.value(module.get()));
    return layout;
}
