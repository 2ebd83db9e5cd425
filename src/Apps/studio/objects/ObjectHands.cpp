// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A pull is one step in the history: its changes merge, and one that ends at the initial values leaves no step.
#include "studio/objects/ObjectHands.h"

#include "QuarvelSceneCore/graph/MO_SceneCommon.h"
#include "studio/objects/ObjectsInFrame.h"
#include "studio/preview/ShownPixels.h"
#include "studio/preview/Viewer.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kSamePlace = 4.0;

double distance(const QPointF& one, const QPointF& other)
{
    return std::hypot(one.x() - other.x(), one.y() - other.y());
}

} // namespace

ObjectHands::ObjectHands(DocumentObjects& objects, Viewer& viewer, QObject* parent)
    : QObject(parent), _objects(objects), _viewer(viewer)
{
    viewer.setTool(this);
    connect(&objects, &DocumentObjects::changed, this, [this] {
        _outlinesOf.reset();
        update();
    });
    connect(&objects, &DocumentObjects::hoveredChanged, this, &ObjectHands::update);
    connect(&objects.document(), &StudioDocument::sceneReplaced, this, [this] {
        _doing = Doing::NOTHING;
        _hot.reset();
    });
}

ObjectHands::~ObjectHands()
{
    _viewer.setTool(nullptr);
}

void ObjectHands::update()
{
    _viewer.update();
}

std::vector<SceneObject> ObjectHands::under(const QPointF& place) const
{
    const RenderedFramePtr& frame = _viewer.frame();
    return frame ? objectsAt(*frame, _objects.all(), _viewer.transform().toPicture(place)) : std::vector<SceneObject>();
}

QRectF ObjectHands::rectOf(const SceneObject& object) const
{
    const RenderedFramePtr& frame = _viewer.frame();
    const QRectF bounds = frame ? boundsOf(*frame, object) : QRectF();
    return bounds.isEmpty() ? QRectF() : _viewer.transform().toView(bounds);
}

QRectF ObjectHands::selectedRect() const
{
    QRectF all;
    for (const SceneObject& object : _objects.selected())
        all |= rectOf(object);
    return all;
}

double ObjectHands::breadthOf(const SceneObject& object) const
{
    const RenderedFramePtr& frame = _viewer.frame();
    if (!frame)
        return 0.0;
    const QSizeF size = boundsOf(*frame, object).size();
    return std::min(size.width(), size.height()) * MO_SceneCommon::kFrameWidth / frame->fullSize.width();
}

double ObjectHands::unit() const
{
    const RenderedFramePtr& frame = _viewer.frame();
    return frame ? frame->fullSize.width() / MO_SceneCommon::kFrameWidth * _viewer.transform().scale() : 1.0;
}

ObjectHandles ObjectHands::handles() const
{
    const SceneObject* const current = currentOf(_objects.selected());
    if (!current)
        return {};
    const QRectF object = rectOf(*current);
    return object.isEmpty() ? ObjectHandles() : ObjectHandles(object, QRectF(_viewer.rect()), current->tilt);
}

void ObjectHands::press(const QPointF& place, Qt::KeyboardModifiers)
{
    _from = place;
    _now = place;
    _hot = handles().at(place);
    _doing = _hot ? Doing::PULL : Doing::PRESSED;
    _objects.finishChange();
    _pulledAny = false;
    _before.clear();
    if (_hot)
        _before = _objects.selected();
    update();
}

void ObjectHands::drag(const QPointF& place, Qt::KeyboardModifiers modifiers)
{
    _now = place;
    if (_doing == Doing::PRESSED && distance(_from, place) > kSamePlace) {
        _doing = Doing::RECTANGLE;
        _objects.setHovered(nullptr);
    }
    if (_doing == Doing::PULL)
        pull(place, modifiers.testFlag(Qt::ShiftModifier));
    update();
}

void ObjectHands::pull(const QPointF& to, bool carefully)
{
    // While the handle was held, objects may have left the selection, and others joined it.
    const std::vector<SceneObject> selected = _objects.selected();
    if (_hot && std::ranges::equal(selected, _before, isSame))
        _pulledAny = _objects.changeOn(pullCmd(selected, to - _from, carefully)) || _pulledAny;
}

MO_EditCommand ObjectHands::pullCmd(const std::vector<SceneObject>& objects, const QPointF& way, bool carefully) const
{
    const auto before = [&](const SceneObject& object) -> const SceneObject& {
        return _before[static_cast<std::size_t>(&object - objects.data())];
    };
    const double frame = _objects.document().currentFrame();
    if (const auto value = valueOf(*_hot))
        return changeValueCmd(objects, *value, frame, [&](const SceneObject& object) {
            return pulled(valueOf(before(object), *value), *value, way, unit(), carefully);
        });
    return tiltCmd(objects, frame,
                   [&](const SceneObject& object) { return pulledTilt(before(object).tilt, way, carefully); });
}

void ObjectHands::release(const QPointF& place, Qt::KeyboardModifiers modifiers)
{
    const bool adds = modifiers.testFlag(Qt::ShiftModifier);
    switch (std::exchange(_doing, Doing::NOTHING)) {
    case Doing::PRESSED:
        click(place, adds);
        break;
    case Doing::RECTANGLE:
        takeRectangle(place, adds);
        break;
    case Doing::PULL:
        _objects.finishChange();
        break;
    case Doing::NOTHING:
        break;
    }
    hover(place);
    update();
}

void ObjectHands::click(const QPointF& place, bool adds)
{
    const std::vector<SceneObject> found = under(place);
    const bool again = distance(place, _lastClick) <= kSamePlace;
    _lastClick = place;
    if (found.empty()) {
        if (!adds)
            _objects.select({});
        return;
    }
    if (adds)
        return _objects.toggle(found.front());
    std::size_t chosen = 0;
    if (again && _objects.selected().size() == 1)
        for (std::size_t i = 0; i < found.size(); ++i)
            if (isSame(found[i], _objects.selected().front()))
                chosen = (i + 1) % found.size();
    _objects.select({found[chosen]});
}

void ObjectHands::takeRectangle(const QPointF& to, bool adds)
{
    const QRectF rectangle = QRectF(_from, to).normalized();
    std::vector<SceneObject> chosen = adds ? _objects.selected() : std::vector<SceneObject>();
    // From back to front, so that the topmost object becomes the current one.
    const std::vector<SceneObject>& all = _objects.all();
    for (auto object = all.rbegin(); object != all.rend(); ++object) {
        const QRectF rect = rectOf(*object);
        const bool isNew = std::ranges::none_of(chosen, [&](const SceneObject& one) { return isSame(one, *object); });
        if (!rect.isEmpty() && rectangle.contains(rect) && isNew)
            chosen.push_back(*object);
    }
    _objects.select(chosen);
}

void ObjectHands::hover(const QPointF& place)
{
    _now = place;
    const auto before = _hot;
    _hot = handles().at(place);
    const std::vector<SceneObject> found = _hot ? std::vector<SceneObject>() : under(place);
    _objects.setHovered(found.empty() ? nullptr : &found.front());
    if (before || _hot)
        update();
}

void ObjectHands::leave()
{
    _hot.reset();
    _objects.setHovered(nullptr);
    update();
}

void ObjectHands::aim(const QPointF& place)
{
    const std::vector<SceneObject> found = under(place);
    if (!found.empty() && !_objects.isSelected(found.front()))
        _objects.select({found.front()});
}

bool ObjectHands::cancel()
{
    switch (std::exchange(_doing, Doing::NOTHING)) {
    case Doing::PULL:
        if (_pulledAny)
            _objects.document().commands().dropRun();
        _objects.finishChange();
        break;
    case Doing::RECTANGLE:
    case Doing::PRESSED:
        break;
    case Doing::NOTHING:
        if (_objects.document().selection().isEmpty())
            return false;
        _objects.select({});
        break;
    }
    _hot.reset();
    update();
    return true;
}

Qt::CursorShape ObjectHands::cursor(const QPointF& place) const
{
    const auto handle = _doing == Doing::PULL ? _hot : handles().at(place);
    if (!handle || _doing == Doing::RECTANGLE)
        return Qt::ArrowCursor;
    if (*handle == ObjectHandle::TILT)
        return Qt::SizeAllCursor;
    return *handle == ObjectHandle::ELEVATION ? Qt::SizeVerCursor : Qt::SizeHorCursor;
}

const QPainterPath& ObjectHands::outlineFor(const SceneObject& object)
{
    const OutlineForm form =
        showsPixels(_viewer.transform(), *_viewer.frame()) ? OutlineForm::STEPS : OutlineForm::SLANTED;
    if (_outlinesOf != _viewer.frame() || _outlineForm != form) {
        _outlines.clear();
        _outlinesOf = _viewer.frame();
        _outlineForm = form;
    }
    const ObjectDefinition* const key = object.definitions.front();
    const auto known = std::ranges::find(_outlines, key, &Outline::definition);
    if (known != _outlines.end())
        return known->path;
    _outlines.push_back({key, outlineOf(*_outlinesOf, object, form)});
    return _outlines.back().path;
}

void ObjectHands::paintOutline(QPainter& painter, const SceneObject& object, bool isSelected)
{
    const ViewTransform& transform = _viewer.transform();
    const QPointF origin = transform.toView(QPointF());
    const QTransform toView(transform.scale(), 0.0, 0.0, transform.scale(), origin.x(), origin.y());
    const QPainterPath path = toView.map(outlineFor(object));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // Light on dark, so that it is visible on any picture.
    painter.setPen(QPen(QColor(20, 20, 24, isSelected ? 200 : 110), isSelected ? 4.0 : 3.0));
    painter.drawPath(path);
    const QColor selected = _viewer.palette().color(QPalette::Highlight).lighter(125);
    painter.setPen(QPen(isSelected ? selected : QColor(255, 255, 255, 200), isSelected ? 2.0 : 1.2,
                        object.isCutOut() ? Qt::DashLine : Qt::SolidLine));
    painter.drawPath(path);
}

void ObjectHands::paint(QPainter& painter)
{
    if (!_viewer.frame())
        return;
    for (const SceneObject& object : _objects.selected())
        paintOutline(painter, object, true);
    if (const SceneObject* const object = _objects.hovered(); object && !_objects.isSelected(*object))
        paintOutline(painter, *object, false);
    if (_doing == Doing::RECTANGLE) {
        QColor inside = _viewer.palette().color(QPalette::Highlight);
        painter.setPen(QPen(inside, 1.0));
        inside.setAlpha(50);
        painter.setBrush(inside);
        painter.drawRect(QRectF(_from, _now).normalized());
    } else {
        if (const SceneObject* const current = currentOf(_objects.selected()); current && _hot == ObjectHandle::TILT)
            paintFacing(painter, rectOf(*current).center(), current->tilt);
        handles().paint(painter, _viewer.palette(), _hot);
    }
    paintWords(painter);
}

void ObjectHands::paintWords(QPainter& painter) const
{
    const SceneObject* const current = currentOf(_objects.selected());
    if (!_hot || !current)
        return;
    const std::optional<ObjectValue> value = valueOf(*_hot);
    const QString name = value ? ObjectTexts::name(*value) : ObjectTexts::tiltName();
    const auto numbers = [&](const SceneObject& object) {
        return value ? ObjectTexts::number(valueOf(object, *value)) : ObjectTexts::tilt(object.tilt);
    };
    QString words = QStringLiteral("%1  %2").arg(name, numbers(*current));
    if (const SceneObject* const before = currentOf(_before); before && _doing == Doing::PULL)
        words = QStringLiteral("%1  %2 \u2192 %3").arg(name, numbers(*before), numbers(*current));
    paintBesideMouse(painter, _now, QRectF(_viewer.rect()), words);
}
