#include "app/StatusBar.h"

#include "core/DelimiterUtilities.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QPaintEvent>
#include <QStyleOption>
#include <QStylePainter>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace {

struct LabelInfo {
    StatusBar::Label label;
    char const* accessibleName;
    bool atRight;
    bool hasCommands; ///< a press offers what can be done about it
    int rank;         ///< the highest go first where the window is too narrow for all
};

// In the order of their places, from left to right.
constexpr LabelInfo labelInfos[] = {
    {StatusBar::Label::TableSize, "Table size", false, true, 2},
    {StatusBar::Label::Selection, "Selection", false, false, 6},
    {StatusBar::Label::CellLength, "Cell length", false, false, 8},
    {StatusBar::Label::Stats, "Sum and mean", false, false, 9},
    {StatusBar::Label::Filters, "Filters", true, true, 7},
    {StatusBar::Label::Delimiter, "Delimiter", true, true, 1},
    {StatusBar::Label::Encoding, "Encoding", true, true, 3},
    {StatusBar::Label::LineEnding, "Line ending", true, true, 4},
    {StatusBar::Label::Mode, "Editing mode", true, true, 5},
};
constexpr int messageGap = 6; ///< beside a message, in pixels
constexpr int lineGap = 2;    ///< above and below it
constexpr int messageFlags = Qt::AlignLeading | Qt::AlignVCenter | Qt::TextWordWrap;

static_assert(std::size(labelInfos) == StatusBar::labelCount);

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
    // Else the labels that are shown push the bar out of a window that became narrower, and it never drops any.
    setSizePolicy(QSizePolicy::Ignored, sizePolicy().verticalPolicy());
    connect(this, &QStatusBar::messageChanged, this, [this] {
        dropWhatDoesNotFit();
        makeRoomForMessage();
    });
    sideBarButton = makeSideButton(QStringLiteral(":images/Sidebar Icon Left.png"), tr("Side Bar"));
    connect(sideBarButton, &QToolButton::clicked, this, &StatusBar::sideBarButtonPressedSignal);
    addWidget(sideBarButton);
    for (LabelInfo const& info : labelInfos) {
        auto* label = new QLabel(this);
        label->setFont(font());
        label->setTextFormat(Qt::PlainText);
        label->setAccessibleName(tr(info.accessibleName));
        labels[static_cast<std::size_t>(info.label)] = label;
        if (info.hasCommands) {
            label->installEventFilter(this);
            label->setCursor(Qt::PointingHandCursor);
        }
        if (info.atRight) {
            addPermanentWidget(label);
        } else {
            addWidget(label);
        }
    }
    auto* const metadataButton = makeSideButton(QStringLiteral(":images/Sidebar Icon Right.png"), tr("File Metadata"));
    connect(metadataButton, &QToolButton::clicked, this, &StatusBar::metadataButtonPressedSignal);
    addPermanentWidget(metadataButton);
}

QToolButton* StatusBar::makeSideButton(QString const& image, QString const& toolTip) {
    auto* const button = new QToolButton(this);
    button->setFixedSize(17, 13);
    button->setIconSize(button->size());
    button->setIcon(QIcon(image));
    button->setStyleSheet(QStringLiteral("QToolButton { padding: 0; border: none; background: transparent; }"));
    button->setFocusPolicy(Qt::NoFocus);
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    return button;
}

bool StatusBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        auto const place = std::find(labels.begin(), labels.end(), watched);
        if (place != labels.end()) {
            emit labelPressedSignal(static_cast<Label>(place - labels.begin()));
            return true;
        }
    }
    return QStatusBar::eventFilter(watched, event);
}

void StatusBar::setText(Label label, QString const& text) {
    QLabel* const widget = labels[static_cast<std::size_t>(label)];
    if (widget->text() != text) {
        widget->setText(text);
        dropWhatDoesNotFit();
    }
}

void StatusBar::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    dropWhatDoesNotFit();
    makeRoomForMessage();
}

/// Where a message stands: in front of the labels and the button at the right.
QRect StatusBar::messageArea() const {
    QRect area = contentsRect();
    for (QObject const* const child : children()) {
        auto const* const widget = qobject_cast<QWidget const*>(child);
        if (widget != nullptr && !widget->isHidden())
            area.setRight(std::min(area.right(), widget->x() - messageGap));
    }
    return area;
}

// A message that is longer than the bar goes on in further lines, for which the bar grows.
void StatusBar::makeRoomForMessage() {
    layout()->activate();
    QString const message = currentMessage();
    QRect const area(0, 0, messageArea().width(), QWIDGETSIZE_MAX);
    int const height = message.isEmpty() ? 0 : fontMetrics().boundingRect(area, messageFlags, message).height();
    setMinimumHeight(message.isEmpty() ? 0 : height + 2 * lineGap);
    update();
}

void StatusBar::paintEvent(QPaintEvent* event) {
    if (currentMessage().isEmpty()) {
        QStatusBar::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_PanelStatusBar, option);
    painter.setPen(palette().windowText().color());
    painter.drawText(messageArea(), messageFlags, currentMessage());
}

/// What the bar has for its labels beside everything else that its row holds, and the gap in front of each.
StatusBar::LabelRoom StatusBar::labelRoom() const {
    LabelRoom room{contentsRect().width(), 0};
    for (int i = 0; i < layout()->count(); ++i) {
        QLayout* const row = layout()->itemAt(i)->layout();
        if (row == nullptr)
            continue;
        room.gap = row->spacing();
        room.width += room.gap; // none in front of the first
        for (int place = 0; place < row->count(); ++place) {
            QLayoutItem* const item = row->itemAt(place);
            bool const isLabel = std::find(labels.begin(), labels.end(), item->widget()) != labels.end();
            if (!isLabel)
                room.width -= item->minimumSize().width() + (item->widget() != nullptr ? room.gap : 0);
        }
    }
    return room;
}

// A label that is cut off says nothing; it is better not there. A message takes the place of what stands at the left.
void StatusBar::dropWhatDoesNotFit() {
    bool const hasMessage = !currentMessage().isEmpty();
    sideBarButton->setVisible(!hasMessage);
    LabelRoom const room = labelRoom();
    int left = room.width - (hasMessage ? fontMetrics().horizontalAdvance(currentMessage()) : 0);
    std::array<LabelInfo const*, labelCount> byRank{};
    for (LabelInfo const& info : labelInfos) {
        byRank[static_cast<std::size_t>(info.rank) - 1] = &info;
    }
    for (LabelInfo const* const info : byRank) {
        QLabel* const label = labels[static_cast<std::size_t>(info->label)];
        int const need = label->sizeHint().width() + room.gap;
        bool const isCovered = !info->atRight && hasMessage;
        bool const fits = !isCovered && need <= left;
        left -= fits ? need : 0;
        label->setVisible(fits);
    }
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

QString StatusBar::filtersText(std::vector<int> rows, std::vector<int> cols) {
    QStringList names;
    std::sort(rows.begin(), rows.end());
    std::sort(cols.begin(), cols.end());
    for (int const row : rows) {
        names += QStringLiteral("R%1").arg(row);
    }
    for (int const col : cols) {
        names += QStringLiteral("C%1").arg(col);
    }
    return QStringLiteral("Filters: ") + (names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", ")));
}
