// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// MO_Module: a node that takes part in rendering. By default it passes on the picture of its first input.
//
// A frame's way through the graph (RD_SoftRenderer.h drives it):
//   1. Scripting. From the module that is rendered upward, every input port is asked to insert its rendering requests
//      (insertRenderingRequestForSrcPort).
//   2. Rendering. Each module says what it needs of an input (computeInputRect) and who makes its picture
//      (createSoftRenderInterface); the drawings of the leaves pass through the requests before they are rendered.
//
// As XML a module is one element:
//
//     <module enabled="true" name="Normal-Map_1" place="120 -36" type="Vallorin">
//       <attrs>
//         <BlurScale val="1.5"/>
//       </attrs>
//     </module>
//
// Unknown XML attributes and elements are kept and written back.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelBaseCore/UT_SharedPtr.h"
#include "QuarvelPersistentObj/PIO_ComponentReader.h"
#include "QuarvelPersistentObj/PO_UnknownXml.h"
#include "QuarvelSceneCore/graph/MO_CompositeType.h"
#include "QuarvelSceneCore/graph/MO_Node.h"
#include "QuarvelSceneCore/graph/MO_XmlEditable.h"

#include <optional>

class MO_AbstractModuleVisitor;
class MO_BaseContext;
class MO_PortContext;
class MO_RenderingRequestHandler;
class MO_SoftRenderInterface;
class RD_ScriptContext;
namespace node_render {
struct PortRenderInfo;
}

/// How a copy of a module shares data that is saved in files of its own.
enum class MO_FileSharing
{
    SAME_OBJECTS, ///< original and copy are used on one thread, and hold the same objects
    FOR_RENDERING ///< the copy may be rendered on another thread while the original is changed
};

/// Where a module stands in a view of its group's graph: the middle of its box, in the units of the view; y down.
struct MO_GraphPlace
{
    /// The largest distance from the origin along an axis.
    static constexpr double kLimit = 1e6;

    double x = 0.0;
    double y = 0.0;

    friend bool operator==(const MO_GraphPlace&, const MO_GraphPlace&) = default;
};

/// A module of the graph. See the top of this file for when its operations are called.
class QUARVELSCENECORE_EXPORT MO_Module : public MO_Node, public MO_XmlEditable
{
public:
    /// @param outPorts how many output ports the module begins with
    explicit MO_Module(unsigned outPorts = 1);
    ~MO_Module() override;

    /// The name of the module's kind for people, from which a new module's own name is made.
    virtual QString baseDisplayName() const = 0;

    /// Where a person put the module in the view of its group's graph; nothing for a module that nobody moved, which a
    /// view places by itself. No picture depends on it, so nobody is notified of a change.
    const std::optional<MO_GraphPlace>& graphPlace() const { return _graphPlace; }
    void setGraphPlace(const std::optional<MO_GraphPlace>& place) { _graphPlace = place; }

    /// What reads an element written by writeXml() into this module: the name, the switch, the attributes, and what the
    /// kind of module adds. The graph reads the links. A module that treats missing attributes specially prepares
    /// itself here.
    ///
    /// @return never null; must not outlive the module
    virtual std::unique_ptr<PIO_ComponentReader> componentReader();

    /// Calls the visitor's operation for this kind of module; that of a plain module unless overridden.
    virtual void accept(MO_AbstractModuleVisitor& visitor);

    /// The pixels of an input that are needed to make the pixels of rect; rect itself unless overridden. The renderer
    /// clamps the answer to four diagonals of the canvas around it.
    virtual Math::Box2di computeInputRect(const MO_PortContext& context, int port, const Math::Box2di& rect);

    /// The order in which the input pictures are composed; LAST_PORT_FIRST unless overridden.
    virtual MO_CompositeType::CompositeOrder compositeOrder(const MO_BaseContext& context);

    /// The object that makes this module's picture for one frame. Without one, which is the default, the module passes
    /// on the picture of its first input.
    ///
    /// @param ports one record for each input port that takes part, in port order
    virtual UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context, const std::vector<node_render::PortRenderInfo>& ports);

    /// Inserts the requests for what comes in through an input port. By default it goes on to the input ports of the
    /// module upstream and inserts nothing itself. An override calls this function first and then inserts its own
    /// request, so that the requests of the modules upstream come before it.
    virtual void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port);

    /// A handler for a request of this module; null, the default, for a module that makes none.
    virtual std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler();

    /// Whether a render that names no module may start here (MO_Scene::outputModule()). False unless overridden.
    virtual bool isSceneOutput() const;

    /// Takes over the data of another module that is not in its XML because it is saved in files of its own, such as
    /// drawings: the last step of a copy. Does nothing unless overridden.
    ///
    /// @param original a module of the same class, whose attributes this one has already
    virtual void shareFiles(const MO_Module& original, MO_FileSharing sharing);
    /// Whether the module has anything that shareFiles() would take over from it. False unless overridden.
    virtual bool hasFiles() const;

    /// "module".
    QString getXmlElementName() const override;
    /// Writes kind, name and switch; to be called first by overriding functions.
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    /// Writes the attributes and the unknown XML; to be called first by overriding functions.
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    class Reader;

    /// Reads an XML attribute that a kind of module adds.
    ///
    /// @return whether it was understood; if not, it is kept and written back. False unless overridden
    virtual bool parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings);
    /// The same for an element.
    virtual bool parseXmlSubnode(const QDomElement& element, QStringList* warnings);

private:
    std::optional<MO_GraphPlace> _graphPlace;
    PO_UnknownXml _unknown;
    PO_UnknownXml _unknownAttrs;
};
