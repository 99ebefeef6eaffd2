#include "app/launcher/PrevOptionWidget.h"

#include "app/launcher/LauncherLook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

PrevOptionWidget::PrevOptionWidget(QString const& title, QString const& answer, Theme const& theme, QWidget* parent)
    : QWidget(parent), theme(theme), text(QStringLiteral("%1 %2").arg(title, answer).simplified()),
      label(new QLabel(this)) {
    constexpr int pointSize = 10;
    constexpr int sideMargin = LauncherLook::shadow + 10;
    setAttribute(Qt::WA_TranslucentBackground);
    setCursor(Qt::PointingHandCursor);
    setToolTip(tr("Go back to this answer (Ctrl+-)"));
    setAccessibleName(tr("Answer given, go back: %1").arg(text));
    label->setTextFormat(Qt::PlainText);
    label->setFont(LauncherLook::font(pointSize));
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(sideMargin, LauncherLook::shadow, sideMargin, LauncherLook::shadow);
    layout->addWidget(label);
}

void PrevOptionWidget::adjustHeight(int extra) {
    setFixedHeight(label->fontMetrics().height() + extra);
}

void PrevOptionWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    LauncherLook::paintPanel(painter, rect(), theme);
}

void PrevOptionWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        emit goHereSignal();
}

void PrevOptionWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    elideText();
}

void PrevOptionWidget::elideText() {
    QMargins const margins = layout()->contentsMargins();
    int const room = width() - margins.left() - margins.right();
    label->setText(label->fontMetrics().elidedText(text, Qt::ElideRight, room));
}
