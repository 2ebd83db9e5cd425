// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Thumbnails are made when their row is first painted, so that scenes with many drawings open at once.
#include "studio/docks/scene/ElementsView.h"

#include "QuarvelSceneCore/attributes/AT_DrawingAttr.h"
#include "QuarvelSceneCore/editing/MO_AttrCommands.h"
#include "studio/docks/scene/DrawingThumbnail.h"

#include <QBoxLayout>
#include <QDir>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>

namespace {

constexpr int kThumbnail = 36;
constexpr int kFramesColumn = 1;

std::vector<MO_ElementModule*> elementsOf(const MO_Scene& scene)
{
    std::vector<MO_ElementModule*> elements;
    scene.root().forEachModule([&](MO_Module& module) {
        if (auto* element = dynamic_cast<MO_ElementModule*>(&module))
            elements.push_back(element);
    });
    return elements;
}

} // namespace

// What the rows of an element show. A drawing that changes is replaced by another object.
struct ElementsView::ShownElement
{
    QString name;
    QStringList files;
    std::map<QString, UT_SharedPtr<CELVEC_Kvd>> drawings;
    AT_ExposureSheet exposures;

    explicit ShownElement(const MO_ElementModule& element)
        : name(element.instanceName())
        , files(element.origin().files)
        , drawings(element.drawings())
        , exposures(element.drawingAttr()->exposures())
    {}

    bool shows(const MO_ElementModule& element) const
    {
        return name == element.instanceName() && files == element.origin().files && drawings == element.drawings() &&
               exposures == element.drawingAttr()->exposures();
    }
};

class ElementsView::DrawingRow : public QTreeWidgetItem
{
public:
    DrawingRow(QTreeWidgetItem* parent, const QString& name, UT_SharedPtr<CELVEC_Kvd> drawing, double ratio,
               const QRectF& frame)
        : QTreeWidgetItem(parent, {name}), _drawing(std::move(drawing)), _ratio(ratio), _frame(frame)
    {}

    QVariant data(int column, int role) const override
    {
        if (role != Qt::DecorationRole || column != 0 || !_drawing)
            return QTreeWidgetItem::data(column, role);
        if (_thumbnail.isNull())
            _thumbnail = drawingThumbnail(*_drawing, kThumbnail, _ratio, _frame);
        return _thumbnail;
    }

private:
    UT_SharedPtr<CELVEC_Kvd> _drawing;
    double _ratio;
    QRectF _frame;
    mutable QPixmap _thumbnail;
};

ElementsView::ElementsView(StudioDocument& document, QWidget* parent)
    : QWidget(parent)
    , _document(document)
    , _tree(new QTreeWidget)
    , _expose(new QPushButton(tr("Show at Frame")))
    , _nothing(new QPushButton(tr("Show Nothing")))
{
    setObjectName(QStringLiteral("Elements"));
    _tree->setObjectName(QStringLiteral("ElementsTree"));
    _tree->setAccessibleName(tr("Elements"));
    _tree->setHeaderLabels({tr("Drawing"), tr("Frames")});
    _tree->setIconSize(QSize(kThumbnail, kThumbnail));
    _tree->setFrameShape(QFrame::NoFrame);
    _tree->header()->setStretchLastSection(false);
    _tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    _tree->header()->setSectionResizeMode(kFramesColumn, QHeaderView::ResizeToContents);
    _expose->setObjectName(QStringLiteral("ExposeDrawing"));
    _nothing->setObjectName(QStringLiteral("ExposeNothing"));
    _nothing->setToolTip(tr("Show nothing of the element from the current frame on"));

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(8, 6, 8, 6);
    bar->addStretch();
    bar->addWidget(_nothing);
    bar->addWidget(_expose);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(_tree, 1);
    rows->addLayout(bar);
    setFocusProxy(_tree);

    connect(_tree, &QTreeWidget::currentItemChanged, this, &ElementsView::takeSelection);
    connect(_tree, &QTreeWidget::itemActivated, this, &ElementsView::exposeCurrent);
    connect(_expose, &QPushButton::clicked, this, &ElementsView::exposeCurrent);
    connect(_nothing, &QPushButton::clicked, this, &ElementsView::exposeNothing);
    connect(&_document, &StudioDocument::sceneReplaced, this, &ElementsView::rebuild);
    connect(&_document, &StudioDocument::sceneChanged, this, &ElementsView::refresh);
    connect(&_document, &StudioDocument::edited, this, &ElementsView::refresh);
    connect(&_document, &StudioDocument::selectionChanged, this, &ElementsView::showSelection);
    connect(&_document, &StudioDocument::currentFrameChanged, this, &ElementsView::showFrame);
    rebuild();
}

ElementsView::~ElementsView() = default;

QString ElementsView::framesOf(const AT_ExposureSheet& sheet, const QString& drawing, int first, int last)
{
    QStringList parts;
    int from = 0;
    bool open = false;
    const auto close = [&](int to) {
        const int begin = std::max(from, first);
        const int end = std::min(to, last);
        if (open && begin <= end)
            parts << (begin == end ? QString::number(begin) : QStringLiteral("%1\u2013%2").arg(begin).arg(end));
        open = false;
    };
    for (const auto& [frame, shown] : sheet.exposures()) {
        if (shown == drawing && open)
            continue;
        close(frame - 1);
        open = shown == drawing;
        from = frame;
    }
    close(last);
    return parts.join(QStringLiteral(", "));
}

// Asked after every command, also while a value is dragged, so it copies nothing.
bool ElementsView::isShown() const
{
    const MO_Scene& scene = _document.scene();
    return _shownFrames == std::pair(scene.firstFrame(), scene.lastFrame()) &&
           std::ranges::equal(_shown, elementsOf(scene),
                              [](const ShownElement& shown, const MO_ElementModule* now) { return shown.shows(*now); });
}

void ElementsView::refresh()
{
    if (!isShown())
        rebuild();
}

void ElementsView::rebuild()
{
    _synchronizing = true;
    const QTreeWidgetItem* const current = _tree->currentItem();
    const QString drawing = current && current->parent() ? current->text(0) : QString();
    const QString element = !current ? QString() : current->parent() ? current->parent()->text(0) : current->text(0);
    _tree->clear();
    _shown.clear();
    const MO_Scene& scene = _document.scene();
    _shownFrames = {scene.firstFrame(), scene.lastFrame()};
    for (MO_ElementModule* each : elementsOf(scene)) {
        _shown.emplace_back(*each);
        auto* top = new QTreeWidgetItem(_tree, {each->instanceName()});
        if (const QStringList& files = each->origin().files; !files.isEmpty())
            top->setToolTip(0, tr("From %1").arg(QDir::toNativeSeparators(files.first())));
        if (element == each->instanceName())
            _tree->setCurrentItem(top);
        const QRectF frame = frameInDrawing(scene, *each, _document.currentFrame());
        for (const auto& [name, kvd] : each->drawings()) {
            auto* row = new DrawingRow(top, name, kvd, devicePixelRatioF(), frame);
            row->setText(kFramesColumn,
                         framesOf(each->drawingAttr()->exposures(), name, scene.firstFrame(), scene.lastFrame()));
            row->setToolTip(0, tr("Double click to show this drawing from the current frame on"));
            if (element == each->instanceName() && drawing == name)
                _tree->setCurrentItem(row);
        }
        top->setExpanded(true);
    }
    _synchronizing = false;
    showFrame();
}

void ElementsView::showFrame()
{
    const QTreeWidgetItem* const current = _tree->currentItem();
    _expose->setText(tr("Show at Frame %1").arg(_document.currentFrame()));
    _expose->setToolTip(tr("Show the selected drawing from frame %1 on").arg(_document.currentFrame()));
    _expose->setEnabled(current && current->parent());
    _nothing->setEnabled(current != nullptr);
    QFont bold = _tree->font();
    bold.setBold(true);
    for (int i = 0; i < _tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const top = _tree->topLevelItem(i);
        const MO_ElementModule* const element = elementOf(top);
        if (!element)
            continue;
        const QString shown = element->drawingAttr()->drawing(_document.currentFrame());
        for (int row = 0; row < top->childCount(); ++row)
            top->child(row)->setFont(0, top->child(row)->text(0) == shown ? bold : _tree->font());
    }
}

MO_ElementModule* ElementsView::elementOf(const QTreeWidgetItem* item) const
{
    const QTreeWidgetItem* const top = item && item->parent() ? item->parent() : item;
    return top ? dynamic_cast<MO_ElementModule*>(_document.scene().findModule(top->text(0))) : nullptr;
}

void ElementsView::takeSelection()
{
    if (_synchronizing)
        return;
    showFrame();
    if (MO_ElementModule* const element = elementOf(_tree->currentItem()))
        _document.setSelection({element});
}

// The element that is selected elsewhere becomes the current one, unless one of its drawings is already.
void ElementsView::showSelection()
{
    refresh();
    const MO_Module* const current = _document.currentModule();
    if (!current || elementOf(_tree->currentItem()) == current)
        return;
    _synchronizing = true;
    for (int i = 0; i < _tree->topLevelItemCount(); ++i)
        if (_tree->topLevelItem(i)->text(0) == current->instanceName() && elementOf(_tree->topLevelItem(i)) == current)
            _tree->setCurrentItem(_tree->topLevelItem(i));
    _synchronizing = false;
    showFrame();
}

void ElementsView::expose(MO_ElementModule& element, const QString& drawing)
{
    _document.execute(MO_exposeCmd(*element.drawingAttr(), _document.currentFrame(), drawing));
}

void ElementsView::exposeCurrent()
{
    const QTreeWidgetItem* const current = _tree->currentItem();
    MO_ElementModule* const element = elementOf(current);
    if (element && current->parent())
        expose(*element, current->text(0));
}

void ElementsView::exposeNothing()
{
    if (MO_ElementModule* const element = elementOf(_tree->currentItem()))
        expose(*element, QString());
}
