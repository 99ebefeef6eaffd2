#include "view/TLCornerButton.h"

TLCornerButton::TLCornerButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr("Select all cells"));
}
