// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Scene: a scene with its graph. All nodes, including those inside groups, have different names, so a name alone
// identifies a node.
//
//     <scene firstFrame="1" frameHeight="405" frameRate="25" lastFrame="48" version="1">
//       <camera>
//         <TruckFactor val="1"/>
//       </camera>
//       <lights>...</lights>
//       <graph>...</graph>
//     </scene>
//
// The palettes and the drawings of the elements are not in this element: they are files of their own.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelPersistentObj/PIO_XmlWritable.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "QuarvelSceneCore/graph/XUGroup.h"

#include <functional>

/// A scene. See MO_Node.h for threads.
class QUARVELSCENECORE_EXPORT MO_Scene : public MO_SceneCommon, public PIO_XmlWritable
{
public:
    /// The version of the XML that this class writes.
    static constexpr int kVersion = 1;

    MO_Scene();
    ~MO_Scene() override;

    /// The outermost group, which has no ports.
    XUGroup& root() const { return *_root; }

    /// The module of this name anywhere in the scene; null when there is none.
    MO_Module* findModule(const QString& name) const { return _root->findModule(name); }
    /// The module where a render starts that names none: the first enabled module of the outermost group that is an
    /// output (MO_Module::isSceneOutput()); null when there is none.
    MO_Module* outputModule() const;

    /// Whether connect() would make a link. Nothing changes and nobody is notified.
    ///
    /// @return the reason when it would not: there is no such port, or MO_Port::mayConnect() refuses
    static UT_Result<void> mayConnect(const MO_Module& source, const MO_Module& target, unsigned inPort = 0,
                                      unsigned outPort = 0);
    /// Links an input port of a module to an output port of another. A module with automatic ports gets the missing
    /// ports up to the requested one.
    ///
    /// @return an error, and nothing has changed, when mayConnect() refuses
    static UT_Result<void> connect(MO_Module& source, MO_Module& target, unsigned inPort = 0, unsigned outPort = 0);
    /// Cuts the link of an input port; does nothing when there is none.
    static void disconnect(MO_Module& target, unsigned inPort = 0);

    /// Replaces camera, lights, frames and graph by an element's; palettes stay. Unknown parts are kept, with a
    /// warning.
    ///
    /// @return an error, and the scene has not changed, when the element is not a scene or is unusable
    UT_Result<void> readXml(const QDomElement& element, QStringList* warnings);

    /// Calls the function with every attribute of the scene that a link drives.
    void forEachLinked(const std::function<void(AT_SimpleAttr&)>& function) const;

    /// Resolves the links of attributes. To be called after links were made from paths.
    void resolveLinks();

    AT_Attr* findAttr(const QString& path) const override;
    QString pathOf(const AT_Attr& attr) const override;
    void nodeRenamed(const MO_Node& node) override;

    /// "scene".
    QString getXmlElementName() const override;
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

private:
    void readCamera(const QDomElement& camera, QStringList* warnings);

    std::unique_ptr<XUGroup> _root;
    PO_UnknownXml _unknown;
    PO_UnknownXml _unknownCamera;
};
