#pragma once

#include <QWidget>

/// The place left of the tables for the lists of open files and folders. It has no content yet and stays hidden.
class SideBar : public QWidget {
    Q_OBJECT

public:
    explicit SideBar(QWidget* parent = nullptr);
};
