#pragma once

#include "appearance/Theme.h"

#include <QWidget>

class QLabel;

/// A strip above the launcher with an answer that was given earlier in the chain; a press on it goes back there.
class PrevOptionWidget : public QWidget {
    Q_OBJECT

public:
    PrevOptionWidget(QString const& title, QString const& answer, Theme const& theme, QWidget* parent = nullptr);

    /// Makes the strip as high as its text and `extra` pixels.
    void adjustHeight(int extra);

signals:
    /// The user wants to get back to this answer; whoever holds the strips takes them away first.
    void goHereSignal();
    /// The strip is gone, and its question is to be put again.
    void expandThisSignal();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void elideText();

    Theme theme;
    QString text;
    QLabel* label;
};
