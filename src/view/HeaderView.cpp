#include "view/HeaderView.h"

#include <QMenu>

#include <algorithm>

namespace {

constexpr int sampledSections = 50;

} // namespace

HeaderView::HeaderView(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent) {
    bool const horizontal = orientation == Qt::Horizontal;
    setAccessibleName(horizontal ? tr("Column labels") : tr("Row labels"));
    setSectionResizeMode(QHeaderView::Interactive);
    setResizeContentsPrecision(sampledSections);
    setSortIndicatorShown(true);
    setSortIndicator(-1, Qt::AscendingOrder);
    setSectionsClickable(true);
    // The labels do not follow Qt's selection, which is not the table's; asking it would walk whole columns.
    setHighlightSections(false);
}

void HeaderView::setupContextMenus(CommandActions const& actions) {
    commands = actions;
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &HeaderView::onCustomContextMenu, Qt::UniqueConnection);
}

QSize HeaderView::sizeHint() const {
    QSize hint = QHeaderView::sizeHint();
    if (orientation() == Qt::Vertical && count() > 0)
        hint.setWidth(std::max(hint.width(), sectionSizeFromContents(count() - 1).width()));
    return hint;
}

void HeaderView::onCustomContextMenu(QPoint const& point) {
    if (logicalIndexAt(point) < 0)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    appendToMenu(*menu, headerMenuEntries(orientation()), commands);
    menu->popup(viewport()->mapToGlobal(point));
}
