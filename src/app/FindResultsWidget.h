#pragma once

#include <QWidget>

/// The place below the tables for the list of what was found. It has no content yet and stays hidden.
class FindResultsWidget : public QWidget {
    Q_OBJECT

public:
    explicit FindResultsWidget(QWidget* parent = nullptr);
};
