#include "app/launcher/OptionListWidget.h"

#include "app/launcher/OptionWidget.h"
#include "core/FuzzySearch.h"

#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int mostRowsInSight = 12;

bool sortLauncherOptionByScore(OptionWidget const* a, OptionWidget const* b) {
    return a->getScore() < b->getScore();
}

} // namespace

OptionListWidget::OptionListWidget(std::vector<OptionData> const& options, Theme const& theme, QWidget* parent)
    : QScrollArea(parent), style(makeOptionWidgetStyleSheetsAndHTMLTags(theme)) {
    setObjectName(QStringLiteral("launcherOptions"));
    setAccessibleName(tr("Options"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setStyleSheet(style.sheet);
    auto* const content = new QWidget;
    column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    rows.reserve(options.size());
    for (OptionData const& option : options) {
        auto* const row = new OptionWidget(option, static_cast<int>(rows.size()), style, content);
        connect(row, &OptionWidget::pressedSignal, this,
                [this](OptionWidget const* pressed) { emit itemClicked(pressed->getData().response); });
        column->addWidget(row);
        rows.push_back(row);
    }
    column->addStretch();
    setWidget(content);
    setWidgetResizable(true);
    shown = rows;
    select(rows.empty() ? -1 : 0);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        fillRowsInSight();
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
                  QStringLiteral("OptionWidget:hover {background-color: #80%1;}\n")
                      .arg(withoutHash(theme.getSelectedItemColor())) +
                  QStringLiteral("OptionWidget[selected=\"true\"] {background-color: %1;}\n")
                      .arg(theme.getSelectedItemColor().name());
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
    ensureWidgetVisible(selected, 0, 0);
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

int OptionListWidget::contentHeight() const {
    int height = 0;
    for (int i = 0; i < std::min(shownCount(), mostRowsInSight); ++i) {
        height += shownRow(i)->height();
    }
    return height;
}

void OptionListWidget::updateOptionList(QString const& query) {
    int const heightBefore = contentHeight();
    arrange(match(query));
    verticalScrollBar()->setValue(0);
    select(shown.empty() ? -1 : 0);
    fillRowsInSight();
    if (contentHeight() != heightBefore)
        emit contentHeightChangedSignal();
}

/// The rows to show for `query`, in their order from the top. Equal scores keep the order of the list.
std::vector<OptionWidget*> OptionListWidget::match(QString const& query) {
    bool const everything = query.trimmed().isEmpty();
    std::vector<OptionWidget*> matching;
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

void OptionListWidget::arrange(std::vector<OptionWidget*> newShown) {
    if (newShown == shown)
        return;
    QWidget* const content = widget();
    content->setUpdatesEnabled(false);
    for (OptionWidget* const row : shown) {
        column->removeWidget(row);
    }
    std::vector<OptionWidget*> const before = std::exchange(shown, std::move(newShown));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        column->insertWidget(static_cast<int>(i), shown[i]);
    }
    // Only what comes or goes is shown or hidden: both are costly.
    std::vector<bool> stays(rows.size(), false);
    for (OptionWidget const* const row : shown) {
        stays[static_cast<std::size_t>(row->getOriginalIndex())] = true;
    }
    for (OptionWidget* const row : before) {
        row->setVisible(stays[static_cast<std::size_t>(row->getOriginalIndex())]);
    }
    for (OptionWidget* const row : shown) {
        row->setVisible(true);
    }
    column->activate();
    content->setUpdatesEnabled(true);
}

void OptionListWidget::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    fillRowsInSight();
}

void OptionListWidget::fillRowsInSight() {
    int const top = verticalScrollBar()->value();
    int const bottom = top + viewport()->height();
    int y = 0;
    for (OptionWidget* const row : shown) {
        if (y >= bottom)
            break;
        if (y + row->height() > top)
            row->fillWidget();
        y += row->height();
    }
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
