// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_AttrLink: the surrogate that reads another attribute of the scene, so that one value drives many.
//
// A link is made of a path, "NODE.KEY", where NODE is the text that names a node in the scene (it may contain dots; a
// key never does). A link reads nothing before it is resolved and after its target was deleted: the driven attribute
// then has its local value. Links that form a circle give every attribute of the circle its local value.
#pragma once

#include "QuarvelBaseCore/UT_SharedWeakBase.h"
#include "QuarvelSceneCore/attributes/AT_AttrSurrogate.h"

#include <QString>

class AT_Attr;
class AT_SimpleAttr;

/// Finds attributes by path and knows their paths; a scene is one.
class QUARVELSCENECORE_EXPORT AT_LinkScope
{
public:
    AT_LinkScope() = default;
    AT_LinkScope(const AT_LinkScope&) = default;
    AT_LinkScope& operator=(const AT_LinkScope&) = default;
    virtual ~AT_LinkScope();

    /// The attribute at a path, or null.
    virtual AT_Attr* findAttr(const QString& path) const = 0;
    /// The path of an attribute; empty when it is not part of the scope.
    virtual QString pathOf(const AT_Attr& attr) const = 0;
};

/// Reads a scalar attribute (a number, a truth value, an enumeration) given by its path.
class QUARVELSCENECORE_EXPORT AT_AttrLink : public AT_ScalarSimpleAttrSurrogate, private XUListener
{
public:
    explicit AT_AttrLink(const QString& path);
    ~AT_AttrLink() override;

    /// The path, as it is written to files.
    const QString& path() const { return _path; }
    /// The attribute that is read; null when the link is not resolved, or the attribute was deleted.
    AT_SimpleAttr* target() const;

    /// Looks the path up. Leaves the link unresolved when there is no attribute at the path, or one that is not a
    /// scalar.
    ///
    /// @return whether the link is resolved now
    bool resolve(const AT_LinkScope& scope);
    /// Drops the target and keeps the path: the opposite of resolve().
    void forgetTarget();
    /// Updates the path after nodes were renamed or moved. An unresolved link keeps its path.
    void refreshPath(const AT_LinkScope& scope);

    /// The target's value at the frame; nothing when there is no target, when the links form a circle, or when the
    /// chain of links is longer than 256.
    std::optional<double> value(double frame) const override;

    /// "NODE.KEY".
    static QString makePath(const QString& node, const QString& key);
    /// The part of a path before its last dot; empty when it has no dot.
    static QString nodeOf(const QString& path);
    /// The part of a path after its last dot; the whole path when it has no dot.
    static QString keyOf(const QString& path);

private:
    void told(XUTeller& teller) override;
    void leaveTarget();

    QString _path;
    UT_WeakPtr<AT_SimpleAttr> _target;
};
