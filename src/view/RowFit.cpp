#include "view/RowFit.h"

#include "view/SampledLines.h"

#include <QStyle>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int wrapped = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
constexpr int unboundedHeight = 99999;

bool isPrintableAscii(QString const& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c < QChar(0x7f); });
}

int widestAsciiCharacter(QFontMetrics const& metrics) {
    int widest = 0;
    for (char16_t c = u' '; c < 0x7f; ++c)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(c)));
    return widest + 1; // advances are rounded
}

} // namespace

RowFit::RowFit(QTableView const& view, QFont const& font, int firstCol, int colCount, int precision, int maximumHeight)
    : view(view), metrics(font),
      margin((view.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1) * 2),
      maximumHeight(maximumHeight),
      lineHeight(metrics.boundingRect(0, 0, unboundedHeight, unboundedHeight, wrapped, QStringLiteral("x")).height()),
      widestAscii(widestAsciiCharacter(metrics)) {
    for (int const col : SampledLines(firstCol, colCount, precision)) {
        if (!view.isColumnHidden(col))
            columns.push_back({col, std::max(view.columnWidth(col) - margin, 1) - 1});
    }
}

int RowFit::heightOf(int row) const {
    int best = 0;
    for (Column const& column : columns) {
        QString const text = view.model()->index(row, column.col).data().toString();
        if (text.isEmpty())
            continue;
        best = std::max(best, margin + textHeight(text, column.textWidth));
        if (best >= maximumHeight)
            return maximumHeight;
    }
    if (best == 0)
        return 0;
    return view.showGrid() ? best + 1 : best;
}

/// A plain text that surely fits on a line is not laid out: that is most of a table, and ten times as fast.
int RowFit::textHeight(QString const& text, int width) const {
    if (qint64(text.size()) * widestAscii <= width && isPrintableAscii(text))
        return lineHeight;
    return metrics.boundingRect(0, 0, width, unboundedHeight, wrapped, text).height();
}
