#pragma once

#include <QWidget>

/// The place above the tables for the bar that finds and replaces. It has no content yet and stays hidden.
class FindReplaceWidget : public QWidget {
    Q_OBJECT

public:
    explicit FindReplaceWidget(QWidget* parent = nullptr);
};
