#include "view/HeaderView.h"

#include "core/SortMarks.h"
#include "view/FirstSectionsModel.h"

#include <QItemSelectionModel>
#include <QMenu>
#include <QMouseEvent>
#include <QStyleOptionHeader>

#include <algorithm>
#include <utility>

namespace {

constexpr int sampledSections = 50;
/// How many pixels at either edge of a section resize it.
constexpr int resizeGrip = 3;

} // namespace

HeaderView::HeaderView(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
    bool const horizontal = orientation == Qt::Horizontal;
    setAccessibleName(horizontal ? tr("Column labels") : tr("Row labels"));
    setSectionResizeMode(QHeaderView::Interactive);
    setResizeContentsPrecision(sampledSections);
    setSortIndicatorShown(true);
    setSortIndicator(-1, Qt::AscendingOrder);
    // The labels do not follow Qt's selection, which is not the table's; asking it would walk whole columns.
    setHighlightSections(false);
}

void HeaderView::setupContextMenus(CommandActions const& actions) {
    commands = actions;
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &HeaderView::onCustomContextMenu, Qt::UniqueConnection);
}

void HeaderView::setSectionLimit(int limit) {
    sectionLimit = limit;
    if (firstSections != nullptr)
        firstSections->setMost(existingSections());
}

// A view asks its header what lies at its far edge, which is a little behind the last line that it shows, and takes
// all lines of the table for an answer where there is nothing.
int HeaderView::existingSections() const {
    constexpr int behindTheEdge = 2;
    return sectionLimit + behindTheEdge;
}

void HeaderView::setModel(QAbstractItemModel* model) {
    delete std::exchange(firstSections, nullptr);
    if (model != nullptr && sectionLimit >= 0) {
        firstSections = new FirstSectionsModel(model, orientation(), existingSections(), this);
        model = firstSections;
    }
    QHeaderView::setModel(model);
}

void HeaderView::setSelectionModel(QItemSelectionModel* selection) {
    if (selection == nullptr || selection->model() == model())
        QHeaderView::setSelectionModel(selection);
}

QSize HeaderView::sizeHint() const {
    if (!leader.isNull())
        return leader->sizeHint();
    QSize hint = QHeaderView::sizeHint();
    if (orientation() == Qt::Vertical && count() > 0)
        hint.setWidth(std::max(hint.width(), sectionSizeFromContents(count() - 1).width()));
    return hint;
}

int HeaderView::labelWidth(int section) const {
    QString label = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
    if (!label.endsWith(SortMarks::ascending) && !label.endsWith(SortMarks::descending))
        label += QStringLiteral(" %1").arg(SortMarks::ascending);
    QVariant const font = model()->headerData(section, orientation(), Qt::FontRole);
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.section = section;
    option.text = label;
    option.fontMetrics = QFontMetrics(font.isValid() ? font.value<QFont>() : this->font());
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this).width();
}

void HeaderView::relayOut() {
    // One section is enough to have the size of all judged anew.
    headerDataChanged(orientation(), 0, 0);
    viewport()->update();
    emit geometriesChanged();
}

// The mouse.

int HeaderView::along(QPointF const& point) const {
    QPoint const pixel = point.toPoint();
    return orientation() == Qt::Horizontal ? pixel.x() : pixel.y();
}

bool HeaderView::isOnGrip(int section, int pixel) const {
    int const start = sectionViewportPosition(section);
    return pixel <= start + resizeGrip || pixel >= start + sectionSize(section) - resizeGrip;
}

/// While the sections are fixed Qt resizes none of them, wherever the drag goes.
void HeaderView::beginSelecting(int section) {
    pressedSection = section;
    setSectionResizeMode(QHeaderView::Fixed);
}

void HeaderView::mousePressEvent(QMouseEvent* event) {
    int const pixel = along(event->position());
    int const section = logicalIndexAt(pixel);
    bool const left = event->button() == Qt::LeftButton;
    bool const ctrl = event->modifiers() == Qt::ControlModifier;
    if (event->button() == Qt::RightButton) {
        emit sectionRightClicked(section);
        return;
    }
    if (left && (ctrl || event->modifiers() == Qt::NoModifier) && !isOnGrip(section, pixel)) {
        beginSelecting(section);
        if (ctrl)
            emit sectionCtrlClicked(section);
        else
            emit sectionClicked(section);
        return;
    }
    if (left && event->modifiers() == Qt::ShiftModifier) {
        arrayDragArmed = true;
        pressedSection = section;
        emit sectionShiftClicked(section);
    }
    QHeaderView::mousePressEvent(event);
}

void HeaderView::mouseMoveEvent(QMouseEvent* event) {
    int const section = logicalIndexAt(along(event->position()));
    // A resize goes on past the last section, which grows behind it.
    if (pressedSection >= 0 && sectionLimit >= 0 && section >= sectionLimit)
        return;
    if (section < 0 || pressedSection < 0 || section == pressedSection) {
        QHeaderView::mouseMoveEvent(event);
        return;
    }
    pressedSection = section;
    emit sectionEntered(section);
}

void HeaderView::mouseReleaseEvent(QMouseEvent* event) {
    int const section = logicalIndexAt(along(event->position()));
    pressedSection = -1;
    setSectionResizeMode(QHeaderView::Interactive);
    emit mouseReleased(section);
    if (arrayDragArmed) {
        emit arrayDragStopSignal(getAxis(), section);
        arrayDragArmed = false;
    }
    QHeaderView::mouseReleaseEvent(event);
}

// The context menu.

void HeaderView::onCustomContextMenu(QPoint const& point) {
    if (logicalIndexAt(point) < 0)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    appendToMenu(*menu, headerMenuEntries(orientation()), commands);
    holdWhileShown(*menu);
    menu->popup(viewport()->mapToGlobal(point));
}
