// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The bar is near the object, where it covers no handle and little of the drawing, and always inside the view. During a
// drag of a value it does not move.
#include "studio/objects/ObjectBar.h"

#include "studio/objects/ObjectActions.h"
#include "studio/objects/ObjectHandles.h"
#include "studio/objects/ObjectHands.h"
#include "studio/objects/ObjectsInFrame.h"
#include "studio/objects/ValueField.h"
#include "studio/preview/Viewer.h"

#include <QAction>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

constexpr int kGap = 18;
constexpr int kMargin = 8;

QToolButton* buttonFor(QAction* action)
{
    auto* const button = new QToolButton;
    button->setDefaultAction(action);
    button->setObjectName(QStringLiteral("bar-") + action->objectName());
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setIconSize(QSize(18, 18));
    button->setAccessibleName(action->text());
    return button;
}

// How many handles a rectangle covers.
std::ptrdiff_t covered(const std::vector<QPointF>& handles, const QRectF& rect)
{
    constexpr double kHandle = 14.0;
    const QRectF around = rect.adjusted(-kHandle, -kHandle, kHandle, kHandle);
    return std::ranges::count_if(handles, [&](const QPointF& handle) { return around.contains(handle); });
}

double areaOf(const QRectF& rect)
{
    return rect.isValid() ? rect.width() * rect.height() : 0.0;
}

// Whether two rectangles are the same but for the larger pixels of a quick picture.
bool isNearly(const QRectF& one, const QRectF& other)
{
    constexpr double kReach = 12.0;
    const QPointF first = one.topLeft() - other.topLeft();
    const QPointF second = one.bottomRight() - other.bottomRight();
    return std::max({std::abs(first.x()), std::abs(first.y()), std::abs(second.x()), std::abs(second.y())}) < kReach;
}

// How far apart two rectangles are; 0 where they meet.
double gapBetween(const QRectF& one, const QRectF& other)
{
    const double across = std::max({0.0, one.left() - other.right(), other.left() - one.right()});
    const double down = std::max({0.0, one.top() - other.bottom(), other.top() - one.bottom()});
    return std::hypot(across, down);
}

// Where a bar may be: beside the object, at the view's sides next to it, and in the view's corners.
std::array<QPointF, 12> placesFor(const QSizeF& size, const QRectF& view, const QRectF& object)
{
    const QPointF centred = object.center() - QPointF(size.width(), size.height()) / 2.0;
    const QPointF far = view.bottomRight() - QPointF(size.width(), size.height());
    return {{{centred.x(), object.bottom() + kGap},
             {centred.x(), object.top() - kGap - size.height()},
             {object.right() + kGap, centred.y()},
             {object.left() - kGap - size.width(), centred.y()},
             {centred.x(), far.y()},
             {centred.x(), view.top()},
             {far.x(), centred.y()},
             {view.left(), centred.y()},
             far,
             {view.left(), far.y()},
             {far.x(), view.top()},
             view.topLeft()}};
}

} // namespace

ObjectBar::ObjectBar(DocumentObjects& objects, ObjectActions& actions, ObjectHands& hands, Viewer& viewer)
    : QFrame(&viewer), _objects(objects), _actions(actions), _hands(hands), _viewer(viewer), _name(new QLabel)
{
    setObjectName(QStringLiteral("objectBar"));
    setAccessibleName(tr("Selected object"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    setFocusPolicy(Qt::ClickFocus);
    // A click beside a field must not reach the picture.
    setAttribute(Qt::WA_NoMousePropagation);
    _name->setTextFormat(Qt::PlainText);
    _name->setObjectName(QStringLiteral("objectBarName"));
    QFont bold = font();
    bold.setBold(true);
    _name->setFont(bold);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(8, 5, 8, 7);
    rows->setSpacing(3);
    rows->addLayout(makeHead());
    rows->addLayout(makeFields());
    hide();
    connect(&objects, &DocumentObjects::changed, this, &ObjectBar::follow);
    connect(&viewer, &Viewer::viewChanged, this, &ObjectBar::follow);
    connect(&viewer, &Viewer::lightHandlesChanged, this, &ObjectBar::stepAside);
}

QLayout* ObjectBar::makeHead()
{
    auto* const head = new QHBoxLayout;
    head->setSpacing(1);
    head->addWidget(_name, 1);
    for (QAction* const action : {_actions.carve(), _actions.cutOut(), _actions.hide(), _actions.solo()})
        head->addWidget(buttonFor(action));
    head->addWidget(makeMoreButton());
    return head;
}

QToolButton* ObjectBar::makeMoreButton()
{
    auto* const more = new QToolButton;
    more->setObjectName(QStringLiteral("bar-more"));
    more->setText(QStringLiteral("\u2026"));
    more->setToolTip(tr("Presets, copy, paste and reset"));
    more->setAccessibleName(tr("More"));
    more->setAutoRaise(true);
    more->setFocusPolicy(Qt::TabFocus);
    more->setPopupMode(QToolButton::InstantPopup);
    more->setStyleSheet(QStringLiteral("QToolButton::menu-indicator { image: none; }"));
    auto* const menu = new QMenu(more);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        _actions.fillMenu(*menu);
    });
    // Where the bar stepped aside meanwhile, nobody tells the button that the mouse is elsewhere.
    connect(menu, &QMenu::aboutToHide, more, [more] {
        more->setAttribute(Qt::WA_UnderMouse, false);
        more->update();
    });
    more->setMenu(menu);
    return more;
}

QLayout* ObjectBar::makeFields()
{
    auto* const values = new QGridLayout;
    values->setHorizontalSpacing(6);
    values->setVerticalSpacing(1);
    constexpr int kColumns = 3;
    for (const ObjectValue value : kObjectValues) {
        const auto index = static_cast<int>(value);
        const int column = index % kColumns;
        const int row = 2 * (index / kColumns);
        auto* const field = new ValueField(value);
        field->setObjectName(QStringLiteral("bar-value-%1").arg(index));
        field->setFixedWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("-000.0000")) + 28);
        auto* const caption = new QLabel(ObjectTexts::name(value));
        caption->setBuddy(field);
        values->addWidget(caption, row, column);
        values->addWidget(field, row + 1, column);
        _fields[index] = field;
        connect(field, &QDoubleSpinBox::valueChanged, this, [this, value](double number) { take(value, number); });
        connect(field, &QDoubleSpinBox::editingFinished, &_objects, &DocumentObjects::finishChange);
    }
    return values;
}

void ObjectBar::follow()
{
    const QRectF object = _hands.selectedRect();
    // An object that was hidden from the bar can be shown again from it, so the bar keeps its place.
    const bool isSeen = !_objects.selected().empty() && _viewer.frame() && (!object.isEmpty() || isVisible());
    if (!isSeen)
        return hide();
    showValues();
    // A light that moves elsewhere must not move the bar, nor a quick picture, nor hiding others by a button of the
    // bar.
    const bool isWellPlaced =
        isNearly(object, _placedFor) && _viewer.rect().contains(geometry()) && covered(handles(), geometry()) == 0;
    if (!object.isEmpty() && !_hands.isDragging() && !isWellPlaced)
        place(object);
    show();
}

void ObjectBar::showValues()
{
    const SceneObject* const withValues = currentOf(_objects.selected());
    const SceneObject& current = withValues ? *withValues : _objects.selected().back();
    const int room = 150;
    _name->setText(_name->fontMetrics().elidedText(ObjectTexts::subject(_objects.selected()), Qt::ElideRight, room));
    _name->setToolTip(current.name);
    for (const ObjectValue value : kObjectValues) {
        ValueField& shown = field(value);
        const QSignalBlocker quiet(shown);
        shown.setValue(valueOf(current, value));
        shown.setEnabled(withValues != nullptr);
    }
}

// All handles that can be pulled in the picture.
std::vector<QPointF> ObjectBar::handles() const
{
    std::vector<QPointF> places = _viewer.lightHandles();
    const ObjectHandles own = _hands.handles();
    if (!own.isEmpty())
        for (const ObjectHandle handle : kObjectHandles)
            places.push_back(own.place(handle));
    return places;
}

// Makes way for a light that comes under the bar.
void ObjectBar::stepAside()
{
    const QRectF object = _hands.selectedRect();
    if (isVisible() && !object.isEmpty() && covered(handles(), geometry()) > 0)
        place(object);
}

void ObjectBar::place(const QRectF& object)
{
    adjustSize();
    _placedFor = object;
    // The handles of a small object are outside it.
    QRectF around = object;
    const ObjectHandles own = _hands.handles();
    if (!own.isEmpty())
        for (const ObjectHandle handle : kObjectHandles)
            around |= QRectF(own.place(handle) - QPointF(1.0, 1.0), QSizeF(2.0, 2.0));
    move(bestPlace(around).toPoint());
}

// The place that covers the fewest handles; of several ones, that which covers least and is nearest.
QPointF ObjectBar::bestPlace(const QRectF& object) const
{
    // As bad as a place that is one unit farther away: as many square units of the picture covered.
    constexpr double kNearness = 50.0;
    const QRectF view = QRectF(_viewer.rect()).adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const QSizeF own = size();
    const std::vector<QPointF> pulled = handles();
    std::optional<QPointF> best;
    std::pair<std::ptrdiff_t, double> least;
    for (const QPointF& place : placesFor(own, view, object)) {
        const QPointF held(std::clamp(place.x(), view.left(), std::max(view.left(), view.right() - own.width())),
                           std::clamp(place.y(), view.top(), std::max(view.top(), view.bottom() - own.height())));
        const QRectF rect(held, own);
        const double hides = areaOf(rect & object) + shareOfDrawing(rect) * areaOf(rect);
        const std::pair cost(covered(pulled, rect), hides + kNearness * gapBetween(rect, object));
        if (best && cost >= least)
            continue;
        best = held;
        least = cost;
    }
    return *best;
}

// How much of a rectangle of the view shows objects, 0 to 1.
double ObjectBar::shareOfDrawing(const QRectF& rect) const
{
    constexpr double kStep = 10.0;
    const auto steps = [](double length) { return std::max(static_cast<int>(std::ceil(length / kStep - 0.5)), 0); };
    const int columns = steps(rect.width());
    const int rows = steps(rect.height());
    int drawn = 0;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const QPointF place = rect.topLeft() + QPointF(column + 0.5, row + 0.5) * kStep;
            drawn += showsObject(*_viewer.frame(), _viewer.transform().toPicture(place)) ? 1 : 0;
        }
    return columns > 0 && rows > 0 ? static_cast<double>(drawn) / (columns * rows) : 0.0;
}

void ObjectBar::take(ObjectValue value, double number)
{
    _objects.changeOn(changeValueCmd(_objects.selected(), value, _objects.document().currentFrame(),
                                     [number](const SceneObject&) { return number; }));
}

void ObjectBar::keyPressEvent(QKeyEvent* event)
{
    // Gives the focus back to the picture, so that its shortcuts work.
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        _viewer.setFocus();
    else
        QFrame::keyPressEvent(event);
}
