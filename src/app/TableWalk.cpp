#include "app/TableWalk.h"

#include "app/PaneView.h"

#include <algorithm>

// A table that has gone leaves a null behind, so that another one at its address is not taken for it.
TableView* TableWalk::next() {
    for (TableView* const table : pane.getTables()) {
        if (std::find(seen.begin(), seen.end(), table) == seen.end()) {
            seen.emplace_back(table);
            return table;
        }
    }
    return nullptr;
}
