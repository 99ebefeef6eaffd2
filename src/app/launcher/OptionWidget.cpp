#include "app/launcher/OptionWidget.h"

#include "app/launcher/LauncherLook.h"
#include "app/launcher/PillLabel.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int textSize = 12;
constexpr int valuePillSize = 10;
constexpr int shortcutPillSize = 8;
constexpr int descriptionSize = 8;
constexpr int sideMargin = 4;
constexpr int spaceForMissingShortcut = 75;
constexpr int spaceAroundText = 6;

QLabel* makeTextLabel(int pointSize, QWidget* parent) {
    auto* const label = new QLabel(parent);
    label->setFont(LauncherLook::font(pointSize));
    // The pills keep their room in a narrow window.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

} // namespace

OptionWidget::OptionWidget(OptionData const& data, OptionStyle const& style, QWidget* parent)
    : QWidget(parent), data(data), style(style) {
    setFixedHeight(rowHeight(!data.description.isEmpty()));
    makeHtml();
    nameForAssistance();
}

int OptionWidget::rowHeight(bool withDescription) {
    int const text = QFontMetrics(LauncherLook::font(textSize)).height() + spaceAroundText;
    return withDescription ? text + QFontMetrics(LauncherLook::font(descriptionSize)).height() + 2 : text;
}

void OptionWidget::nameForAssistance() {
    setAccessibleName(data.text);
    setAccessibleDescription(
        QStringList{data.valuePill, data.shortcutPill, data.description}.join(QLatin1Char(' ')).simplified());
}

void OptionWidget::fillWidget() {
    if (!isFilled()) {
        auto* const lines = new QVBoxLayout(this);
        lines->setContentsMargins(0, 0, 0, 0);
        lines->setSpacing(0);
        auto* const row = new QHBoxLayout;
        row->setContentsMargins(sideMargin, 0, sideMargin, 0);
        textLabel = makeTextLabel(textSize, this);
        textLabel->setTextFormat(Qt::RichText);
        row->addWidget(textLabel, 1);
        if (!data.valuePill.isEmpty()) {
            row->addWidget(new PillLabel(data.valuePill, LauncherLook::font(valuePillSize), 1, this));
            if (data.shortcutPill.isEmpty())
                row->addSpacing(spaceForMissingShortcut);
        }
        if (!data.shortcutPill.isEmpty())
            row->addWidget(new PillLabel(data.shortcutPill, LauncherLook::font(shortcutPillSize), 2, this));
        lines->addLayout(row);
        if (!data.description.isEmpty()) {
            descriptionLabel = makeTextLabel(descriptionSize, this);
            descriptionLabel->setTextFormat(Qt::PlainText);
            descriptionLabel->setContentsMargins(sideMargin, 0, sideMargin, 2);
            descriptionLabel->setText(data.description);
            lines->addWidget(descriptionLabel);
        }
    }
    if (!std::exchange(upToDate, true))
        textLabel->setText(highlightedText);
}

void OptionWidget::highlightOption(std::vector<int> const& newPositions) {
    if (newPositions == positions)
        return;
    positions = newPositions;
    makeHtml();
}

// From the last position to the first: what stands before a tag keeps its place.
void OptionWidget::makeHtml() {
    QStringList parts; // from the back
    auto end = data.text.size();
    auto const take = [&](qsizetype from) {
        parts.prepend(data.text.mid(from, end - from).toHtmlEscaped());
        end = from;
    };
    for (std::size_t i = positions.size(); i > 0; --i) {
        int const position = positions[i - 1];
        bool const lastOfRun = i == positions.size() || positions[i] != position + 1;
        bool const firstOfRun = i == 1 || positions[i - 2] != position - 1;
        if (lastOfRun) {
            take(position + 1);
            parts.prepend(style.matchEnd);
        }
        if (firstOfRun) {
            take(position);
            parts.prepend(style.matchStart);
        }
    }
    take(0);
    highlightedText = style.plainStart + parts.join(QString()) + style.plainEnd;
    upToDate = false;
}

void OptionWidget::setSelected(bool on) {
    if (selected == on)
        return;
    selected = on;
    QWidget::style()->unpolish(this);
    QWidget::style()->polish(this);
    update();
}

void OptionWidget::setDescription(QString const& description) {
    data.description = description;
    if (descriptionLabel != nullptr)
        descriptionLabel->setText(description);
    nameForAssistance();
}

void OptionWidget::onStyleChanged() {
    makeHtml();
    if (isFilled())
        fillWidget();
}

void OptionWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit pressedSignal(this);
}

void OptionWidget::paintEvent(QPaintEvent*) {
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    QWidget::style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
}
