#pragma once

#include "appearance/Theme.h"

#include <QMessageBox>

#include <functional>

/// The message box of every dialog message of the program. One that comes from outside (FromOutside) or right after a
/// key takes no key until it has stood for a moment without any, since the user types something else when it opens.
class MsgBox : public QMessageBox {
    Q_OBJECT

public:
    explicit MsgBox(QWidget* parent = nullptr);

    void setTheme(Theme const& theme);
    /// Gives all buttons the look of the program: no icons, equal height, and the first as default if none is.
    void conditionButtons();
    /// Names the file that the box asks about below its text, and a remark below that.
    void nameFile(QString const& path, QString const& remark = {});
    /// Makes a button at least that many pixels wide and high, and as large as its label needs in any case.
    static void enlarge(QAbstractButton& button, QSize const& least);

    /// Gives the button to press in place of showing the box.
    using Answer = std::function<QAbstractButton*(MsgBox const& box)>;
    /// Answers all boxes from now on, so that tests need no user. An empty function lets boxes be shown again.
    static void setAnswer(Answer newAnswer);
    int exec() override;

    /// Shows `text` with an OK button and waits for it.
    static void inform(QWidget* parent, Theme const& theme, QString const& text);
};
