// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The Object Definition node and the request that carries its settings to whoever renders the drawings.
#include "ObjectDefinition/ObjectDefinition.h"

#include "ObjectDefinition/ObjectDefinitionEntry.h"
#include "ObjectDefinition/ObjectDefinitionMessage.h"
#include "QuarvelSceneCore/attributes/AT_BoolAttr.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"
#include "QuarvelSceneCore/graph/MO_ModuleFactory.h"
#include "QuarvelSceneCore/interfaces/MO_RenderingRequestService.h"
#include "QuarvelSceneCore/interfaces/RD_ScriptContext.h"

#include <QCoreApplication>

namespace {

const AT_AttrMeta kNumberMeta(QStringLiteral("ObjectNumber"),
                              QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Object Number")));
const AT_DoubleAttrMeta kLevelMeta(QStringLiteral("ObjectLevel"),
                                   QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Object Level")),
                                   QStringLiteral("DBL_STEP_LEVEL"), 0.0, 1.0, 0.0, 1.0, 0.05);
const AT_AttrMeta kScaleMeta(QStringLiteral("ScaleByCoverage"),
                             QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Scale by Coverage")));
const AT_AttrMeta kEnabledMeta(QStringLiteral("ObjectEnabled"),
                               QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Object Enabled")));

const AT_DoubleAttrMeta kTiltXMeta(QStringLiteral("TiltX"),
                                   QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Tilt to the Right")),
                                   QStringLiteral("DBL_STEP_ANGLE"), -ObjectDefinition::kMostTilt,
                                   ObjectDefinition::kMostTilt, -60.0, 60.0, 1.0);
const AT_DoubleAttrMeta kTiltYMeta(QStringLiteral("TiltY"),
                                   QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Tilt Upwards")),
                                   QStringLiteral("DBL_STEP_ANGLE"), -ObjectDefinition::kMostTilt,
                                   ObjectDefinition::kMostTilt, -60.0, 60.0, 1.0);

const AT_DoubleAttrMeta kRimBevelMeta(QStringLiteral("RimBevel"),
                                      QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Rim Bevel")),
                                      QStringLiteral("DBL_STEP_BEVEL"), 0.0, ObjectDefinition::kMostRimBevel, 0.0, 40.0,
                                      1.0);
const AT_DoubleAttrMeta kRimHeightMeta(QStringLiteral("RimHeight"),
                                       QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Rim Height")),
                                       QStringLiteral("DBL_STEP_RIM"), 0.0, ObjectDefinition::kMostRimHeight, 0.0, 2.0,
                                       0.1);
const AT_DoubleAttrMeta kReliefMeta(QStringLiteral("Relief"),
                                    QStringLiteral(QT_TRANSLATE_NOOP("AT_AttrMeta", "Relief")),
                                    QStringLiteral("DBL_STEP_RELIEF"), -ObjectDefinition::kMostRelief,
                                    ObjectDefinition::kMostRelief, -1.0, 1.0, 0.1);

const QString kAttributeChosenForm = QStringLiteral("chosenForm");

// Its presence says that an object is switched off.
class DisableEntry final : public CEL_Message
{};

// Reads the node at the frame of each drawing, since number and level may be animated.
class Handler final : public MO_RenderingRequestHandler
{
public:
    explicit Handler(const ObjectDefinition& definition) : _definition(definition) {}

    void processDrawing(BaseContext& context) override
    {
        const double frame = context.frameKey().frame;
        if (!context.findObject(ObjectDefinition::objectDefinitionMessageId()))
            context.addObject(ObjectDefinition::objectDefinitionMessageId(),
                              UT_makeShared<ObjectDefinitionEntry>(_definition.objectId(frame),
                                                                   _definition.objectLevel()->value(frame),
                                                                   _definition.scaleByCoverage()->value(frame)));
        if (!_definition.objectEnabled()->value(frame))
            context.addObject(ObjectDefinition::objectDisableMessageId(), UT_makeShared<DisableEntry>());
    }

private:
    const ObjectDefinition& _definition;
};

const MO_ModuleRegistration<ObjectDefinition> kRegistration;

} // namespace

ObjectDefinition::ObjectDefinition()
    : _objectNumber(new AT_IntAttr(kNumberMeta, nullptr, AT_IntAttr::LINKABLE, 1))
    , _objectLevel(new AT_DoubleAttr(kLevelMeta, nullptr, AT_DoubleAttr::LINKABLE, 1.0, QString()))
    , _scaleByCoverage(new AT_BoolAttr(kScaleMeta, false))
    , _objectEnabled(new AT_BoolAttr(kEnabledMeta, true))
    , _tiltX(new AT_DoubleAttr(kTiltXMeta, nullptr, AT_DoubleAttr::LINKABLE, 0.0, QString()))
    , _tiltY(new AT_DoubleAttr(kTiltYMeta, nullptr, AT_DoubleAttr::LINKABLE, 0.0, QString()))
    , _rimBevel(new AT_DoubleAttr(kRimBevelMeta, nullptr, AT_DoubleAttr::LINKABLE, 0.0, QString()))
    , _rimHeight(new AT_DoubleAttr(kRimHeightMeta, nullptr, AT_DoubleAttr::LINKABLE, kRimHeight, QString()))
    , _relief(new AT_DoubleAttr(kReliefMeta, nullptr, AT_DoubleAttr::LINKABLE, 0.0, QString()))
{
    registerAttr(_objectNumber);
    registerAttr(_objectLevel);
    registerAttr(_scaleByCoverage);
    registerAttr(_objectEnabled);
    registerAttr(_tiltX);
    registerAttr(_tiltY);
    registerAttr(_rimBevel);
    registerAttr(_rimHeight);
    registerAttr(_relief);
    addInImagePort();
}

ObjectDefinition::~ObjectDefinition() = default;

QString ObjectDefinition::Keyword()
{
    return QStringLiteral("OBJECT_DEFINITION");
}

int ObjectDefinition::objectId(double frame) const
{
    return _objectNumber->value(frame);
}

int ObjectDefinition::objectId(const ObjectDefinition* definition, double frame)
{
    return definition ? definition->objectId(frame) : -1;
}

const UT_DynKey& ObjectDefinition::objectDefinitionMessageId()
{
    static const UT_DynKey key("object definition");
    return key;
}

const UT_DynKey& ObjectDefinition::objectDisableMessageId()
{
    static const UT_DynKey key("object disabled");
    return key;
}

QString ObjectDefinition::keyword() const
{
    return Keyword();
}

QString ObjectDefinition::baseDisplayName() const
{
    return QCoreApplication::translate("ObjectDefinition", "Object-Definition");
}

void ObjectDefinition::insertRenderingRequestForSrcPort(RD_ScriptContext& context, int port)
{
    MO_Module::insertRenderingRequestForSrcPort(context, port);
    if (enabled())
        context.insertRequest(MO_RenderingRequestService::createRenderingRequest(this, createRequestHandler()));
}

std::unique_ptr<MO_RenderingRequestHandler> ObjectDefinition::createRequestHandler()
{
    return std::make_unique<Handler>(*this);
}

void ObjectDefinition::writeXmlAttributes(PO_XmlWriter& writer) const
{
    MO_Module::writeXmlAttributes(writer);
    if (!_chosenForm.isEmpty())
        writer.attribute(kAttributeChosenForm, _chosenForm);
}

bool ObjectDefinition::parseXmlAttribute(const QString& name, const QString& value, QStringList* warnings)
{
    if (name != kAttributeChosenForm)
        return MO_Module::parseXmlAttribute(name, value, warnings);
    _chosenForm = value;
    return true;
}
