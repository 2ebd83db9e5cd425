// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Vallorin: the node that gives flat drawings a sense of volume. Its inputs are drawings that Object Definition nodes
// have tagged with numbers; its output is a normal map of them, or their elevation.
//
// The class holds the attributes and answers the host's questions: it needs more of its input than of its output,
// because bevels reach beyond the drawings (computeInputRect); it has every drawing upstream repainted in levels
// (insertRenderingRequestForSrcPort, createRequestHandler); it supplies the render handler (createSoftRenderInterface).
// The folder "render" makes the pictures.
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

    /// Switches ClipBlurredWithGeometry off before it returns the reader: scenes saved before that attribute existed
    /// keep their look, while a new node starts with it on.
    std::unique_ptr<PIO_ComponentReader> componentReader() override;

    void accept(MO_AbstractModuleVisitor& visitor) override;

    /// The rectangle, enlarged on every side by the largest bevel of the object table, times BlurScale, in units of a
    /// 720th of the picture's width. NaN and infinite bevels count as 0. The growth is clamped to four diagonals of the
    /// picture, beyond which a larger bevel looks the same. A truck factor does not enlarge it, although it multiplies
    /// bevels where UseTruckFactor is on: who wants objects beyond the frame's border whole renders more than the
    /// frame.
    Math::Box2di computeInputRect(const MO_PortContext& context, int port, const Math::Box2di& rect) override;

    /// PORT_ORDER.
    MO_CompositeType::CompositeOrder compositeOrder(const MO_BaseContext& context) override;

    /// A render handler with the attributes at the frame of the context: the three multipliers are sampled there; the
    /// others have their local values (the quality: its effective value, link included).
    UT_SharedPtr<MO_SoftRenderInterface>
    createSoftRenderInterface(const RD_ScriptContext& context,
                              const std::vector<node_render::PortRenderInfo>& ports) override;

    /// Does what the base class does, and then inserts this node's own request; does nothing while the node is not
    /// enabled.
    void insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port) override;

    /// A VallorinRequestHandler with the current colour table.
    std::unique_ptr<MO_RenderingRequestHandler> createRequestHandler() override;

    /// The layout in the file "resources/Vallorin.xml" of the plug-in's folder, read anew each time; the null element
    /// when the file cannot be read or parsed.
    QDomElement obtainEditorLayout() override;

private:
    std::unique_ptr<Impl> _impl;
};
