// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Vallorin: the node that gives flat drawings a sense of volume. Its inputs are drawings that Object Definition nodes
// have tagged with numbers; its output is a normal map of them, or their elevation.
//
// The class holds the attributes and answers the host's questions: it asks for more of its input than its output needs,
// because bevels reach beyond the drawings (computeInputRect); it has every drawing upstream repainted in levels
// (insertRenderingRequestForSrcPort, createRequestHandler); it names who makes the picture (createSoftRenderInterface).
// The pictures themselves are made in the folder "render".
#pragma once

#include "QuarvelSceneCore/MO_CompositeModuleBase.h"
#include "VallorinExport.h"

class AT_StringAttr;

/// The module's one node type. Used under the rules of MO_Module; Keyword() may be called from any thread.
class VALLORIN_EXPORT Vallorin : public MO_CompositeModuleBase
{
public:
    class NormalQuality;
    struct Impl;

    /// A node with its ten attributes and one input port, in the ordinary mode.
    Vallorin();
    ~Vallorin() override;

    /// "Vallorin", the name of the node's kind.
    static const QString& Keyword();

    /// Translate a text in this class's context.
    static QString tr(const char* text, const char* disambiguation = nullptr, int n = -1);
    static QString trUtf8(const char* text, const char* disambiguation = nullptr, int n = -1);

    /// The attributes by name; lives as long as the node.
    Impl* impl() const { return _impl.get(); }
    /// The attribute that holds the colour table, as text.
    AT_StringAttr* colorInformation() const;
    /// The attribute that holds the object table, as text.
    AT_StringAttr* objectInformation() const;

    QString keyword() const override;
    QString baseDisplayName() const override;

    /// Switches ClipBlurredWithGeometry off before it hands out the reader: scenes from before that attribute existed
    /// are meant to look as they did then, while a new node starts with it on.
    std::unique_ptr<PIO_ComponentReader> componentReader() override;

    void accept(MO_AbstractModuleVisitor& visitor) override;

    /// The rectangle, enlarged on every side by the largest bevel of the object table, times BlurScale, in units of a
    /// 720th of the picture's width. Bevels that are no finite numbers count as 0, and the growth ends at four
    /// diagonals of the picture, beyond which a bevel shows nothing new.
    Math::Box2di computeInputRect(const MO_PortContext& context, int port, const Math::Box2di& rect) override;

    /// PORT_ORDER.
    MO_CompositeType::CompositeOrder compositeOrder(const MO_BaseContext& context) override;

    /// A render handler with the attributes as they are at the frame of the context: the three multipliers are sampled
    /// there, all else is the local value (of the quality, the driven one).
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context,
                              const std::vector<node_render::PortRenderInfo>& ports) override;

    /// What the base class does, and then this node's own request; nothing at all while the node is not enabled.
    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override;

    /// A VallorinRequestHandler with the colour table of this moment.
    std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler() override;

    /// The layout in the file "resources/Vallorin.xml" of the plug-in's folder, read afresh each time; the null element
    /// when the file cannot be read or parsed.
    QDomElement obtainEditorLayout() override;

private:
    std::unique_ptr<Impl> _impl;
};
