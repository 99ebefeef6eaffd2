#pragma once

#include <QWidget>

/// While it lives, a widget is not laid out and painted anew for each of its lines that is resized. Afterwards it is as
/// it was: a widget whose parent takes no updates either takes them again with that parent.
class PausedUpdates {
public:
    explicit PausedUpdates(QWidget& widget)
        : widget(widget), wereOn(!widget.testAttribute(Qt::WA_ForceUpdatesDisabled)) {
        widget.setUpdatesEnabled(false);
    }
    ~PausedUpdates() {
        if (wereOn)
            widget.setUpdatesEnabled(true);
    }
    Q_DISABLE_COPY_MOVE(PausedUpdates)

private:
    QWidget& widget;
    bool wereOn; ///< by itself, whatever its parent does
};
