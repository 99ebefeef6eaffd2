#pragma once

#include <QLabel>

/// Stands where a table is being loaded in the background and tells how far the load is, in per cent.
class LoadProgressOverlay : public QLabel {
    Q_OBJECT

public:
    explicit LoadProgressOverlay(QWidget* parent = nullptr);

    void setProgress(int done, int steps);
};
