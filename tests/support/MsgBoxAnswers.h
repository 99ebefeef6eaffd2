#pragma once

#include "view/MsgBox.h"

#include <QAbstractButton>
#include <QQueue>
#include <gtest/gtest.h>

/// Presses the buttons of message boxes while it lives. A box that no answer was given for fails the test, and so does
/// an answer to a box that never came.
class MsgBoxAnswers {
public:
    MsgBoxAnswers() {
        MsgBox::setAnswer([this](MsgBox const& box) { return press(box); });
    }
    ~MsgBoxAnswers() {
        MsgBox::setAnswer({});
        EXPECT_TRUE(answers.isEmpty()) << "not asked: " << qPrintable(QStringList(answers).join(", "));
    }

    /// The next box is answered by the button with this label.
    void next(QString const& label) { answers.enqueue(label); }
    QStringList const& texts() const { return shown; }

private:
    QAbstractButton* press(MsgBox const& box) {
        shown << box.text();
        QString const label = answers.isEmpty() ? QString() : answers.dequeue();
        for (QAbstractButton* const button : box.buttons()) {
            if (button->text().remove(QLatin1Char('&')) == label)
                return button;
        }
        ADD_FAILURE() << "unasked: " << qPrintable(box.text());
        return box.buttons().value(0);
    }

    QQueue<QString> answers;
    QStringList shown;
};
