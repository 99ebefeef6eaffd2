#include "app/StatusBar.h"

#include "core/DelimiterUtilities.h"

#include <QLabel>

namespace {

struct LabelInfo {
    StatusBar::Label label;
    char const* accessibleName;
    bool atRight;
};

// In the order of their places, from left to right.
constexpr LabelInfo labelInfos[] = {
    {StatusBar::Label::TableSize, "Table size", false}, {StatusBar::Label::Selection, "Selection", false},
    {StatusBar::Label::Stats, "Sum and mean", false},   {StatusBar::Label::Delimiter, "Delimiter", true},
    {StatusBar::Label::Encoding, "Encoding", true},     {StatusBar::Label::LineEnding, "Line ending", true},
    {StatusBar::Label::Mode, "Editing mode", true},
};

QString plural(int count) {
    return count == 1 ? QString() : QStringLiteral("s");
}

QString sizeText(int rows, int cols) {
    return QStringLiteral("%L1 row%2 x %L3 column%4").arg(rows).arg(plural(rows)).arg(cols).arg(plural(cols));
}

} // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
    constexpr int pointSize = 10;
    setFont(QFont(QStringLiteral("Lucida Sans Unicode"), pointSize));
    setSizeGripEnabled(false);
    setContentsMargins(10, 0, 10, 0);
    for (LabelInfo const& info : labelInfos) {
        auto* label = new QLabel(this);
        label->setFont(font());
        label->setTextFormat(Qt::PlainText);
        label->setAccessibleName(tr(info.accessibleName));
        labels[static_cast<std::size_t>(info.label)] = label;
        if (info.atRight) {
            addPermanentWidget(label);
        } else if (info.label == Label::Stats) {
            // In a narrow window this gives way to what tells the file's dialect.
            label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            addWidget(label, 1);
        } else {
            addWidget(label);
        }
    }
}

void StatusBar::setText(Label label, QString const& text) {
    labels[static_cast<std::size_t>(label)]->setText(text);
}

QString StatusBar::text(Label label) const {
    return labels[static_cast<std::size_t>(label)]->text();
}

QString StatusBar::tableSizeText(int rows, int cols, int visibleRows, int visibleCols) {
    QString text = sizeText(rows, cols);
    if (visibleRows != rows || visibleCols != cols) {
        text += QStringLiteral(" (%1)").arg(sizeText(visibleRows, visibleCols));
    }
    return text;
}

QString StatusBar::selectionText(RangeSize const& size) {
    auto const counted = [](int count, char const* what) {
        return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(what), plural(count));
    };
    QString const selected = QStringLiteral("Selected: ");
    if (size.rows > 0 && size.cols > 0)
        return selected + counted(size.rows, "row") + QStringLiteral(", ") + counted(size.cols, "column");
    if (size.rows > 0)
        return selected + counted(size.rows, "row");
    if (size.cols > 0)
        return selected + counted(size.cols, "column");
    if (size.height >= 1 && size.width >= 1 && size.cells != 1)
        return selected + QStringLiteral("%1 x %2").arg(size.width).arg(size.height);
    return selected + counted(size.cells, "cell");
}

QString StatusBar::delimiterText(QString const& delimiter, QString const& saveDelimiter) {
    QString const forLoad = Utilities::convertDelimiterFromActualToLongReadable(delimiter);
    if (delimiter == saveDelimiter) {
        return QStringLiteral("Delimiter: %1").arg(forLoad);
    }
    return QStringLiteral("Delimiters (Load, Save): %1, %2")
        .arg(forLoad, Utilities::convertDelimiterFromActualToLongReadable(saveDelimiter));
}
