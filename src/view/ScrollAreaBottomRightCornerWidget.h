#pragma once

#include <QColor>
#include <QWidget>

/// Fills the corner between the scroll bars of a table with the background of the theme.
class ScrollAreaBottomRightCornerWidget : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void setColor(QColor const& newColor);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor color;
};
