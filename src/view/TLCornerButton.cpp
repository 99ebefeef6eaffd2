#include "view/TLCornerButton.h"

TLCornerButton::TLCornerButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    // The look of other buttons has a least width, which would cover the first label.
    setStyleSheet(QStringLiteral("QPushButton { min-width: 0; min-height: 0; padding: 0; border: none; }"));
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Select all cells"));
}
