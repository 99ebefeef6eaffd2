#pragma once

#include "view/TableView.h"

#include <QWidget>

#include <vector>

class LoadProgressOverlay;
class QStackedLayout;

/// Holds every table of a window and shows one of them, or the progress of its load.
class PaneView : public QWidget {
    Q_OBJECT

public:
    explicit PaneView(QWidget* parent = nullptr);

    /// Takes the table in without showing it.
    void addTable(TableView* table);
    /// Takes the table out without deleting it.
    void removeTable(TableView* table);
    void setActiveTable(TableView* table);
    /// The table whose file is `path`, also by another spelling of the same file; null if it is not open.
    TableView* getTableView(QString const& path) const;
    std::vector<TableView*> getTables() const;

signals:
    /// A background load of `table` has ended and the table shows again.
    void tableLoadedSignal(TableView* table);

private:
    /// What stands for one table: the table itself, and in front of it the progress of its load.
    struct Page {
        TableView* table;
        QWidget* stack;
        LoadProgressOverlay* overlay;
    };

    Page const* pageOf(TableView const* table) const;
    void showOverlay(Page const& page, bool on);

    QStackedLayout* pages;
    std::vector<Page> pageList;
};
