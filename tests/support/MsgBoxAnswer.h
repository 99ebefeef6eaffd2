#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

/// Waits for the next message box of the program, notes its text and presses one of its buttons.
class MsgBoxAnswer {
public:
    /// `button` is the label of the button to press, mnemonics included.
    explicit MsgBoxAnswer(QString button = QStringLiteral("OK")) : label(std::move(button)) {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { answer(); });
        timer.start(1);
    }

    /// The text of the box, empty while none has come.
    QString text;

private:
    void answer() {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        timer.stop();
        text = box->text();
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove('&') == QString(label).remove('&')) {
                button->click();
                return;
            }
        }
        box->close();
    }

    QString label;
    QTimer timer;
};
