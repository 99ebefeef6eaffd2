#pragma once

#include <QPushButton>

/// The button in the corner between the headers of a table. The table sizes it and reacts to it.
class TLCornerButton : public QPushButton {
    Q_OBJECT

public:
    explicit TLCornerButton(QWidget* parent);
};
