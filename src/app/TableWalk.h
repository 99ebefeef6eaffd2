#pragma once

#include <QPointer>

#include <vector>

class PaneView;
class TableView;

/// Goes through the tables of a window, each of them once, for work that may ask the user: tables that go meanwhile
/// are left out, and those that come have their turn.
class TableWalk {
public:
    explicit TableWalk(PaneView const& pane) : pane(pane) {}

    /// Null at the end.
    TableView* next();

private:
    PaneView const& pane;
    std::vector<QPointer<TableView>> seen;
};
