#pragma once

#include "appearance/Theme.h"

#include <QMessageBox>

/// The message box of every dialog message of the program.
class MsgBox : public QMessageBox {
    Q_OBJECT

public:
    explicit MsgBox(QWidget* parent = nullptr);

    void setTheme(Theme const& theme);
    /// Gives all buttons the look of the program: no icons, equal height, and the first as default if none is.
    void conditionButtons();

    /// Shows `text` with an OK button and waits for it.
    static void inform(QWidget* parent, Theme const& theme, QString const& text);
};
