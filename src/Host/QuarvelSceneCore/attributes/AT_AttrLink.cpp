// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Links. Each thread keeps a list of the links that it is following, which detects a circle where it closes.
#include "QuarvelSceneCore/attributes/AT_AttrLink.h"

#include "QuarvelSceneCore/attributes/AT_SimpleAttr.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <vector>

namespace {

constexpr std::size_t kLongestChain = 256;

thread_local std::vector<const AT_AttrLink*> theFollowed;

// Marks a link as followed for the lifetime of this object.
class Following
{
public:
    explicit Following(const AT_AttrLink* link) { theFollowed.push_back(link); }
    Following(const Following&) = delete;
    Following& operator=(const Following&) = delete;
    ~Following() { theFollowed.pop_back(); }
};

bool mayFollow(const AT_AttrLink* link)
{
    return theFollowed.size() < kLongestChain && std::ranges::find(theFollowed, link) == theFollowed.end();
}

} // namespace

AT_LinkScope::~AT_LinkScope() = default;

AT_AttrLink::AT_AttrLink(const QString& path) : _path(path) {}

AT_AttrLink::~AT_AttrLink()
{
    leaveTarget();
}

AT_SimpleAttr* AT_AttrLink::target() const
{
    return _target.get();
}

bool AT_AttrLink::resolve(const AT_LinkScope& scope)
{
    leaveTarget();
    auto* found = dynamic_cast<AT_SimpleAttr*>(scope.findAttr(_path));
    const bool usable = found && found->scalarValue(0.0).has_value();
    _target = UT_WeakPtr<AT_SimpleAttr>(usable ? found : nullptr);
    if (usable) {
        found->addListener(*this);
        found->_readers.push_back(this);
    }
    tell();
    return usable;
}

void AT_AttrLink::forgetTarget()
{
    leaveTarget();
    _target = UT_WeakPtr<AT_SimpleAttr>();
    tell();
}

void AT_AttrLink::leaveTarget()
{
    AT_SimpleAttr* const old = target();
    if (!old)
        return;
    old->removeListener(*this);
    std::erase(old->_readers, this);
}

void AT_AttrLink::refreshPath(const AT_LinkScope& scope)
{
    const AT_SimpleAttr* attr = target();
    const QString path = attr ? scope.pathOf(*attr) : QString();
    if (!path.isEmpty())
        _path = path;
}

std::optional<double> AT_AttrLink::value(double frame) const
{
    const AT_SimpleAttr* attr = target();
    if (!attr || !mayFollow(this))
        return std::nullopt;
    const Following following(this);
    return attr->scalarValue(frame);
}

QString AT_AttrLink::makePath(const QString& node, const QString& key)
{
    return node + QLatin1Char('.') + key;
}

QString AT_AttrLink::nodeOf(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : path.left(dot);
}

QString AT_AttrLink::keyOf(const QString& path)
{
    return path.mid(path.lastIndexOf(QLatin1Char('.')) + 1);
}

void AT_AttrLink::told(XUTeller&)
{
    // Notifications go as far as values are followed; attributes further on cannot have changed.
    thread_local std::size_t depth = 0;
    if (depth >= kLongestChain)
        return;
    const QScopedValueRollback rollback(depth, depth + 1);
    tell();
}
