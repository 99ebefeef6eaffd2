#pragma once

#include "view/ContextMenuEntries.h"

#include <QLabel>

class AbstractTableView;
class Theme;

/// The words over the cells of a table of whose data nothing is in sight: what is hidden, and by which commands it
/// comes back. Hidden itself otherwise. A part of the view, which has its model; the mouse goes through it.
class HiddenNotice : public QLabel {
    Q_OBJECT

public:
    explicit HiddenNotice(AbstractTableView* view);

    /// The commands are named with the shortcuts of their actions.
    void setActions(CommandActions const& newActions);
    void setTheme(Theme const& theme);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void refresh();
    void place();
    QString nameOf(QString const& command) const;

    AbstractTableView* view;
    CommandActions actions;
};
