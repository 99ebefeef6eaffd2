#pragma once

#include <QLabel>

/// A short text in a rounded field, such as a shortcut or the value of a setting.
class PillLabel : public QLabel {
    Q_OBJECT

public:
    PillLabel(QString const& text, QFont const& font, int bottomMargin, QWidget* parent) : QLabel(text, parent) {
        setTextFormat(Qt::PlainText);
        setFont(font);
        setContentsMargins(0, 0, 0, bottomMargin);
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    }
};
