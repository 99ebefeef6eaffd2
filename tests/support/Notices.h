#pragma once

#include "app/NoticeLine.h"

#include <QPushButton>
#include <QWidget>

/// What the lines above a window's status bar tell, and the buttons on them.
namespace Notices {

inline QStringList texts(QWidget const& window) {
    QStringList texts;
    for (NoticeLine const* const line : window.findChildren<NoticeLine*>()) {
        if (!line->isHidden())
            texts << line->text();
    }
    return texts;
}

/// Presses the button with this label, if a line shows it.
inline void press(QWidget const& window, QString const& label) {
    for (NoticeLine const* const line : window.findChildren<NoticeLine*>()) {
        for (QPushButton* const button : line->findChildren<QPushButton*>()) {
            if (!line->isHidden() && button->text().remove(QLatin1Char('&')) == label) {
                button->click();
                return;
            }
        }
    }
}

} // namespace Notices
