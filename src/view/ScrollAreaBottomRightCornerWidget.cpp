#include "view/ScrollAreaBottomRightCornerWidget.h"

#include <QPaintEvent>
#include <QPainter>

void ScrollAreaBottomRightCornerWidget::setColor(QColor const& newColor) {
    color = newColor;
    update();
}

void ScrollAreaBottomRightCornerWidget::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), color);
}
