#include "app/FindReplaceWidget.h"

FindReplaceWidget::FindReplaceWidget(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Find and replace"));
    hide();
}
