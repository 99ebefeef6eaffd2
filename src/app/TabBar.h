#pragma once

#include <QTabBar>
#include <QWidget>

#include <vector>

class TableView;

/// One tab per table of the window, in an order that the user may change. Holds no logic on files: what a person asks
/// of a tab goes to the window by signals.
class TabBar : public QWidget {
    Q_OBJECT

public:
    explicit TabBar(QWidget* parent = nullptr);

    /// Inserts a tab right behind the current one.
    void addTable(TableView* table);
    void removeTable(TableView* table);
    /// Moves to a table's tab; unlike a press on it this sends no signal.
    void selectTabOnly(TableView* table);
    /// Marks a table whose changes are not all in its file.
    void setSaved(TableView const* table, bool saved);
    /// The table's name or path has changed.
    void renameTable(TableView const* table);
    int getIndexFromTable(TableView const* table) const;
    TableView* tableAt(int index) const;
    int count() const { return static_cast<int>(tables.size()); }

signals:
    void tabBarIndexChangedSignal(TableView* table);
    void closeFileSignal(TableView* table);

private:
    void onTabMoved(int from, int to);

    QTabBar* bar;
    std::vector<TableView*> tables;
};
