#include "app/FileMetadataWidget.h"

FileMetadataWidget::FileMetadataWidget(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("File metadata"));
    hide();
}
