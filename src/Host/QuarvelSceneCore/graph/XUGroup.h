// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// XUGroup: a module that holds a graph of its own. What is linked to its input ports enters that graph at its entry,
// and what is linked to its exit leaves through its output ports. A group renders nothing itself: links look through
// its border (MO_Port::realSrcPort).
//
//     <module enabled="true" inPorts="1" name="Arm" outPorts="1" type="GROUP">
//       <attrs/>
//       <graph>
//         <module .../>
//         <link from="Upper Arm" fromPort="0" to="Composite" toPort="0"/>
//         <link fromPort="0" to="Composite" toPort="1"/>
//         <link from="Composite" fromPort="0" toPort="0"/>
//       </graph>
//     </module>
//
// A link without "from" begins at the group's entry, one without "to" ends at its exit.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelSceneCore/graph/MO_GroupBorderModule.h"
#include "QuarvelSceneCore/graph/MO_Module.h"

#include <QHash>

#include <optional>

/// A module that holds modules, which belong to it.
class QUARVELSCENECORE_EXPORT XUGroup : public MO_Module
{
public:
    /// The largest number of modules in a graph read from a file, including those in inner groups: enough for a node
    /// with MO_Node::kMaxPorts inputs, each an element behind an Object Definition.
    static constexpr int kMaxModulesInFile = 30000;
    /// How many groups of a file may lie in each other.
    static constexpr int kMaxDepthInFile = 90;

    /// A group without ports.
    XUGroup();
    ~XUGroup() override;

    /// "GROUP".
    static QString Keyword();

    /// Adds an input port, and an output port at the entry.
    MO_Port* addInPort();
    /// Adds an output port, and an input port at the exit.
    MO_Port* addOutPort();
    /// Cuts and removes the last input port. @return false when there is none
    bool removeLastInPort();
    /// Cuts and removes the last output port. @return false when there is none
    bool removeLastOutPort();

    /// The inner side of the input ports.
    MO_GroupBorderModule& entry() const { return *_entry; }
    /// The inner side of the output ports.
    MO_GroupBorderModule& exit() const { return *_exit; }

    /// The place after all modules.
    static constexpr std::size_t kAtEnd = static_cast<std::size_t>(-1);

    /// Adds a module, by default after the others. It gets a name that is unique in the scene: its own or, when that is
    /// empty, its display name, with a number where needed.
    MO_Module& add(std::unique_ptr<MO_Module> module, std::size_t place = kAtEnd);
    /// The same for a module made here: group.emplace<MO_CompositeModule>().
    template<typename Module, typename... Args>
    Module& emplace(Args&&... args)
    {
        return static_cast<Module&>(add(std::make_unique<Module>(std::forward<Args>(args)...)));
    }
    /// Cuts a module's links and removes it from the graph. @return null when it is not one of this group's own
    std::unique_ptr<MO_Module> take(MO_Module& module);

    /// The modules of this group, in order, without the entry, the exit and the modules of inner groups.
    const std::vector<std::unique_ptr<MO_Module>>& modules() const { return _modules; }
    /// The module of this name, in this group or in an inner one; null when there is none.
    MO_Module* findModule(const QString& name) const;
    /// Calls the function for every module of this group and of inner groups, each group before its modules.
    template<typename Function>
    void forEachModule(const Function& function) const
    {
        for (const auto& module : _modules) {
            function(*module);
            if (const auto* inner = dynamic_cast<const XUGroup*>(module.get()))
                inner->forEachModule(function);
        }
    }

    /// For scenes: makes this the scene's outermost group.
    void setScene(MO_SceneCommon* scene) { _scene = scene; }
    MO_SceneCommon* sceneCommon() const override;

    /// Whether a file with this group's graph can be read back.
    ///
    /// @return an error when there are more than kMaxModulesInFile modules, or more than kMaxDepthInFile groups in each
    /// other
    UT_Result<void> mayBeFiled() const;
    /// Whether the scene's file can be read back when this group has got these modules, which are in no graph yet.
    ///
    /// @return an error for the same reasons
    UT_Result<void> mayAdd(const std::vector<const MO_Module*>& modules) const;
    /// Writes the modules and the links as the element "graph". Links are in the order of the modules they lead to,
    /// then in the order of the ports.
    void writeGraph(PO_XmlWriter& writer) const;
    /// Adds what such an element describes. Modules of a kind that the factory does not know become MO_OpaqueModule; a
    /// module whose name is taken gets another one, and the element's links follow it. Impossible links are left out,
    /// with a warning.
    ///
    /// @return an error when the element is unusable; the group may then hold a part of it and must be discarded
    UT_Result<void> readGraph(const QDomElement& element, QStringList* warnings);

    QString keyword() const override;
    QString baseDisplayName() const override;
    void accept(MO_AbstractModuleVisitor& visitor) override;
    void writeXmlAttributes(PO_XmlWriter& writer) const override;
    void writeXmlSubnodes(PO_XmlWriter& writer) const override;

protected:
    bool parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings) override;
    bool parseXmlSubnode(const QDomElement& element, QStringList* warnings) override;

private:
    friend class MO_Node;

    const XUGroup& outermost() const;
    XUGroup& outermost();
    QString claimName(MO_Node& node, const QString& wanted);
    void claimNames(MO_Module& module);
    void releaseNames(MO_Module& module);
    void releaseName(const QString& name);
    bool mayAddFreePorts(unsigned count);
    UT_Result<void> readModule(const QDomElement& element, QHash<QString, MO_Module*>& byFileName,
                               QStringList* warnings);
    void readLink(const QDomElement& element, const QHash<QString, MO_Module*>& byFileName, QStringList* warnings);
    int depth() const;
    void keepUnknownOfLink(const QDomElement& element, const MO_Port& target, QStringList* warnings);
    void writeLinksTo(const MO_Module& target, PO_XmlWriter& writer) const;

    MO_SceneCommon* _scene = nullptr;
    std::unique_ptr<MO_GroupBorderModule> _entry;
    std::unique_ptr<MO_GroupBorderModule> _exit;
    std::vector<std::unique_ptr<MO_Module>> _modules;
    PO_UnknownXml _unknownGraph;
    /// Unknown XML of links, from a newer version, by the names of their ends: a link that is cut and made again has it
    /// again.
    QHash<QString, PO_UnknownXml> _unknownLinks;
    std::optional<UT_Error> _graphError;
    // Of the outermost group only: all names, and the number to try first when a name is taken.
    QHash<QString, MO_Module*> _names;
    QHash<QString, int> _nextNumbers;
    // Of the outermost group only: how many more unlinked ports a file may ask for.
    int _freePortsLeft = 100000;
};
