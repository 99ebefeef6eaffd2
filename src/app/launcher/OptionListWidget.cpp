#include "app/launcher/OptionListWidget.h"

#include "app/launcher/LauncherLook.h"
#include "app/launcher/OptionWidget.h"
#include "core/FuzzySearch.h"

#include <QLabel>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

constexpr int mostRowsInSight = 12;
constexpr int noticeSize = 12;
constexpr int noticeMargin = 4;

bool sortLauncherOptionByScore(OptionWidget const* a, OptionWidget const* b) {
    return a->getScore() < b->getScore();
}

} // namespace

OptionListWidget::OptionListWidget(std::vector<OptionData> const& options, QString const& noMatch, Theme const& theme,
                                   QWidget* parent)
    : QScrollArea(parent), style(makeOptionWidgetStyleSheetsAndHTMLTags(theme)) {
    setObjectName(QStringLiteral("launcherOptions"));
    setAccessibleName(tr("Options"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(style.sheet);
    auto* const content = new QWidget;
    rows.reserve(options.size());
    for (OptionData const& option : options) {
        auto* const row = new OptionWidget(option, style, content);
        connect(row, &OptionWidget::pressedSignal, this,
                [this](OptionWidget const* pressed) { emit itemClicked(pressed->getData().response); });
        row->hide();
        rows.push_back(row);
    }
    notice = new QLabel(noMatch, content);
    notice->setFont(LauncherLook::font(noticeSize));
    notice->setContentsMargins(noticeMargin, noticeMargin, noticeMargin, noticeMargin);
    notice->hide();
    setWidget(content);
    shown = rows;
    resizeContent();
    select(rows.empty() ? -1 : 0);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        placeRowsInSight();
        emit scrolledSignal();
    });
    QTimer::singleShot(0, this, &OptionListWidget::fillListWidgets);
}

OptionStyle OptionListWidget::makeOptionWidgetStyleSheetsAndHTMLTags(Theme const& theme) {
    auto const withoutHash = [](QColor const& color) { return color.name().mid(1); };
    OptionStyle style;
    style.sheet = QStringLiteral("OptionWidget {background-color: #%1%2;}\n")
                      .arg(theme.getLauncherBackgroundAlpha(), 2, 16, QLatin1Char('0'))
                      .arg(withoutHash(theme.getBackground4Color())) +
                  QStringLiteral("OptionWidget:hover {background-color: #48%1;}\n")
                      .arg(withoutHash(theme.getSelectedItemColor())) +
                  QStringLiteral("OptionWidget[selected=\"true\"] {background-color: #70%1;}\n")
                      .arg(withoutHash(theme.getSelectedItemColor()));
    style.plainStart = QStringLiteral("<span style=\"color:%1;\">").arg(theme.getTextColor().name());
    style.plainEnd = QStringLiteral("</span>");
    style.matchStart = QStringLiteral("<b style=\"color:%1;\">").arg(theme.getFuzzySearchHighlightedTextColor().name());
    style.matchEnd = QStringLiteral("</b>");
    return style;
}

void OptionListWidget::setTheme(Theme const& theme) {
    style = makeOptionWidgetStyleSheetsAndHTMLTags(theme);
    setStyleSheet(style.sheet);
    for (OptionWidget* const row : rows) {
        row->onStyleChanged();
    }
}

QString OptionListWidget::selectedResponse() const {
    return selected != nullptr ? selected->getData().response : QString();
}

void OptionListWidget::moveSelection(int rowsDown) {
    if (selected == nullptr)
        return;
    select(std::clamp(selectedIndex + rowsDown, 0, shownCount() - 1));
    scrollToSelected();
}

void OptionListWidget::scrollToSelected() {
    if (selected == nullptr)
        return;
    auto const end = shown.begin() + selectedIndex + 1;
    int const bottom = heightOf(shown.begin(), end);
    QScrollBar* const bar = verticalScrollBar();
    bar->setValue(std::min(std::max(bar->value(), bottom - viewport()->height()), bottom - selected->height()));
}

void OptionListWidget::selectResponse(QString const& response) {
    auto const row = std::find_if(shown.begin(), shown.end(),
                                  [&](OptionWidget const* each) { return each->getData().response == response; });
    if (row != shown.end()) {
        select(static_cast<int>(row - shown.begin()));
        scrollToSelected();
    }
}

QString OptionListWidget::shownNotice() const {
    return notice->isHidden() ? QString() : notice->text();
}

void OptionListWidget::select(int index) {
    if (selected != nullptr)
        selected->setSelected(false);
    selectedIndex = index;
    selected = index < 0 ? nullptr : shown[static_cast<std::size_t>(index)];
    if (selected != nullptr) {
        selected->setSelected(true);
        emit selectionChangedSignal(selectedResponse());
    }
}

int OptionListWidget::heightOf(Rows::const_iterator begin, Rows::const_iterator end) {
    return std::accumulate(begin, end, 0, [](int sum, OptionWidget const* row) { return sum + row->height(); });
}

int OptionListWidget::contentHeight() const {
    return shown.empty() && !notice->text().isEmpty()
               ? notice->sizeHint().height()
               : heightOf(shown.begin(), shown.begin() + std::min(shownCount(), mostRowsInSight));
}

void OptionListWidget::resizeContent() {
    notice->setVisible(shown.empty() && !notice->text().isEmpty());
    notice->resize(viewport()->width(), notice->sizeHint().height());
    widget()->resize(viewport()->width(), shown.empty() ? contentHeight() : heightOf(shown.begin(), shown.end()));
}

void OptionListWidget::updateOptionList(QString const& query) {
    int const heightBefore = contentHeight();
    shown = match(query);
    resizeContent();
    verticalScrollBar()->setValue(0);
    select(shown.empty() ? -1 : 0);
    placeRowsInSight();
    if (contentHeight() != heightBefore)
        emit contentHeightChangedSignal();
}

/// The rows to show for `query`, in their order from the top. Equal scores keep the order of the list.
OptionListWidget::Rows OptionListWidget::match(QString const& query) {
    bool const everything = query.trimmed().isEmpty();
    Rows matching;
    std::vector<int> positions;
    for (OptionWidget* const row : rows) {
        int score = -1;
        Utilities::fuzzySearchScoreAndMatch(score, positions, query, row->getData().text);
        row->setScore(score);
        if (everything || score >= 0) {
            row->highlightOption(positions);
            matching.push_back(row);
        }
    }
    if (!everything) {
        std::stable_sort(matching.begin(), matching.end(),
                         [](OptionWidget const* a, OptionWidget const* b) { return sortLauncherOptionByScore(b, a); });
    }
    return matching;
}

void OptionListWidget::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    resizeContent();
    scrollToSelected();
    placeRowsInSight();
}

// Each row that is shown, hidden or moved costs time, so all others stay hidden where they are.
void OptionListWidget::placeRowsInSight() {
    int const top = verticalScrollBar()->value();
    int const bottom = top + viewport()->height();
    Rows inSight;
    int y = 0;
    for (auto row = shown.begin(); row != shown.end() && y < bottom; ++row) {
        int const height = (*row)->height();
        if (y + height > top) {
            (*row)->fillWidget();
            (*row)->setGeometry(0, y, widget()->width(), height);
            inSight.push_back(*row);
        }
        y += height;
    }
    for (OptionWidget* const row : placed) {
        row->setVisible(std::find(inSight.begin(), inSight.end(), row) != inSight.end());
    }
    for (OptionWidget* const row : inSight) {
        row->show();
    }
    placed = std::move(inSight);
}

// A few rows at a time, so that keys come through between them.
void OptionListWidget::fillListWidgets() {
    constexpr std::size_t rowsAtATime = 5;
    std::size_t const end = std::min(filledRows + rowsAtATime, rows.size());
    for (; filledRows < end; ++filledRows) {
        rows[filledRows]->fillWidget();
    }
    if (!isFilled())
        QTimer::singleShot(0, this, &OptionListWidget::fillListWidgets);
}

void OptionListWidget::onCurrentTableChanged(QString const& tableName) {
    for (OptionWidget* const row : rows) {
        if (row->getData().text.toLower() == QLatin1String("(current file)"))
            row->setDescription(tableName);
    }
}
