#pragma once

#include <QTableView>

/// While it lives, a view is not laid out and painted anew for each of its lines that is resized.
class TableResizing {
public:
    explicit TableResizing(QTableView& view) : view(view), wereOn(view.updatesEnabled()) {
        view.setUpdatesEnabled(false);
    }
    ~TableResizing() {
        if (wereOn)
            view.setUpdatesEnabled(true);
    }
    Q_DISABLE_COPY_MOVE(TableResizing)

private:
    QTableView& view;
    bool wereOn;
};
