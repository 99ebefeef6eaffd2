#pragma once

#include <QWidget>

/// The place right of the tables for what is known of the file of the active table. It has no content yet and stays
/// hidden.
class FileMetadataWidget : public QWidget {
    Q_OBJECT

public:
    explicit FileMetadataWidget(QWidget* parent = nullptr);
};
