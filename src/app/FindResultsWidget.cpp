#include "app/FindResultsWidget.h"

FindResultsWidget::FindResultsWidget(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Find results"));
    hide();
}
