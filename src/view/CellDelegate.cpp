#include "view/CellDelegate.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace {

/// Whether a text can be painted as it stands: one line without tabs or other characters that need a layout.
bool isPlainLine(QString const& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return c >= u' ' && c != QChar::LineSeparator && c != QChar::ParagraphSeparator;
    });
}

void paintLine(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index, QString const& text) {
    QStyle const* const style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    int const margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    QRect const area = option.rect.adjusted(margin, 0, -margin, 0);
    if (area.width() <= 0)
        return;
    QVariant const font = index.data(Qt::FontRole);
    painter->setFont(font.isValid() ? qvariant_cast<QFont>(font).resolve(option.font) : option.font);
    painter->setPen(qvariant_cast<QBrush>(index.data(Qt::ForegroundRole)).color());
    // No character is narrower than a pixel, so what lies behind cannot show.
    QString const shown =
        painter->fontMetrics().elidedText(text.left(area.width()), option.textElideMode, area.width());
    Qt::Alignment const alignment = QStyle::visualAlignment(option.direction, option.displayAlignment);
    painter->drawText(area, int(alignment) | Qt::TextSingleLine, shown);
}

} // namespace

void CellDelegate::paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const {
    QString const text = index.data(Qt::DisplayRole).toString();
    if (option.features.testFlag(QStyleOptionViewItem::WrapText) || !isPlainLine(text)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->fillRect(option.rect, qvariant_cast<QColor>(index.data(Qt::BackgroundRole)));
    if (!text.isEmpty())
        paintLine(painter, option, index, text);
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
}
