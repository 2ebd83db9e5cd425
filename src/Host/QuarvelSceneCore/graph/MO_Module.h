// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Module: a node that takes part in rendering. What a module does not override, it does like a module that passes on
// the picture of its first input.
//
// The way of a frame through the graph (RD_SoftRenderer.h drives it):
//   1. Scripting. From the module that is rendered upward, every input port is asked to insert its rendering requests
//      (insertRenderingRequestForSrcPort).
//   2. Rendering. Each module says what it needs of an input (computeInputRect) and who does its work
//      (createSoftRenderInterface); the drawings of the leaves pass through the requests before anybody gets them.
//
// As XML a module is one element:
//
//     <module enabled="true" name="Normal-Map_1" type="Vallorin">
//       <attrs>
//         <BlurScale val="1.5"/>
//       </attrs>
//     </module>
//
// XML attributes and elements that nobody understands are kept and written back.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelPersistentObj/PIO_ComponentReader.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/graph/MO_CompositeType.h"
#include "QuarvelSceneCore/graph/MO_Node.h"
#include "QuarvelSceneCore/graph/MO_XmlEditable.h"

class MO_AbstractModuleVisitor;
class MO_BaseContext;
class MO_PortContext;
class MO_RenderingRequestHandler;
class MO_SoftRenderInterface;
class RD_ScriptContext;
namespace node_render {
struct PortRenderInfo;
}

/// How a copy of a module shares what lies in files of its own.
enum class MO_FileSharing
{
    SAME_OBJECTS, ///< original and copy are used on one thread, and hold the same objects
    FOR_RENDERING ///< the copy may be rendered on another thread while the original is changed
};

/// A module of the graph. See the top of this file for when its operations are called.
class QUARVELSCENECORE_EXPORT MO_Module : public MO_Node, public MO_XmlEditable
{
public:
    /// @param outPorts how many output ports the module has to begin with
    explicit MO_Module(unsigned outPorts = 1);
    ~MO_Module() override;

    /// The name that people read, and that a new module's own name is made of.
    virtual QString baseDisplayName() const = 0;

    /// What reads an element written by writeXml() into this module: the name, the switch, the attributes, and what the
    /// kind of module adds. Links are not the module's own, the graph reads them. A module that treats missing
    /// attributes in a way of its own prepares itself here.
    ///
    /// @return never null; must not outlive the module
    virtual std::unique_ptr<PIO_ComponentReader> componentReader();

    /// Calls the visitor's operation for this kind of module; that of a plain module unless overridden.
    virtual void accept(MO_AbstractModuleVisitor& visitor);

    /// The pixels of an input that are needed to make the pixels of rect; rect itself unless overridden. The renderer
    /// holds the answer to four diagonals of the canvas around it.
    virtual Math::Box2di computeInputRect(const MO_PortContext& context, int port, const Math::Box2di& rect);

    /// In which order the input pictures are put together; LAST_PORT_FIRST unless overridden.
    virtual MO_CompositeType::CompositeOrder compositeOrder(const MO_BaseContext& context);

    /// The object that makes this module's picture for one frame. A module without one, as all are unless they override
    /// this, passes on the picture of its first input.
    ///
    /// @param ports one record for each input port that takes part, in port order
    virtual UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context, const std::vector<node_render::PortRenderInfo>& ports);

    /// Inserts the requests that concern what comes in through an input port. Goes on to the input ports of the module
    /// behind it, and inserts nothing itself. An overriding function calls this one first and then inserts its own
    /// request, so that the requests of the modules upstream come before it.
    virtual void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port);

    /// A handler for a request of this module; null for a module that makes none, as all are unless they override this.
    virtual std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler();

    /// Whether a render that names no module may start here (MO_Scene::outputModule()). False unless overridden.
    virtual bool isSceneOutput() const;

    /// Takes over what the XML of another module does not hold because it lies in files of its own, such as drawings:
    /// the last step of a copy. Takes nothing unless overridden.
    ///
    /// @param original a module of the same class, of which this one has the attributes already
    virtual void shareFiles(const MO_Module& original, MO_FileSharing sharing);
    /// Whether the module has anything that shareFiles() would take over from it. False unless overridden.
    virtual bool hasFiles() const;

    /// "module".
    QString getXmlElementName() const override;
    /// Writes kind, name and switch; to be called first by overriding functions.
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    /// Writes the attributes and what was not understood; to be called first by overriding functions.
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    class Reader;

    /// Reads an XML attribute that a kind of module adds.
    ///
    /// @return whether it was understood; what is not, is kept and written back. False unless overridden
    virtual bool parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings);
    /// The same for an element.
    virtual bool parseXmlSubnode(const QDomElement& element, QStringList* warnings);

private:
    PO_UnknownXml _unknown;
    PO_UnknownXml _unknownAttrs;
};
