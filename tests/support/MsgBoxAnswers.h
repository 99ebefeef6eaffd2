#pragma once

#include "view/MsgBox.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QPushButton>
#include <QQueue>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

/// Presses the buttons of message boxes while it lives. A box that no answer was given for fails the test, and so does
/// an answer to a box that never came.
class MsgBoxAnswers {
public:
    MsgBoxAnswers() {
        MsgBox::setAnswer([this](MsgBox const& box) { return press(box); });
    }
    ~MsgBoxAnswers() {
        MsgBox::setAnswer({});
        for (Answer const& left : answers)
            ADD_FAILURE() << "not asked: " << qPrintable(left.label);
    }

    /// The next box is answered by the button with this label, after `meanwhile` has happened before it.
    void next(QString const& label, std::function<void()> meanwhile = {}) {
        answers.enqueue({label, std::move(meanwhile)});
    }
    /// The same with the box below the question ticked.
    void nextTicked(QString const& label) { answers.enqueue({label, {}, true}); }
    QStringList const& texts() const { return shown; }
    /// The files that the boxes were about; empty where a box names none beside its text.
    QStringList const& namedFiles() const { return files; }
    /// The labels of the buttons that Enter would have pressed.
    QStringList const& defaults() const { return defaultLabels; }

private:
    struct Answer {
        QString label;
        std::function<void()> meanwhile;
        bool ticks = false;
    };

    QAbstractButton* press(MsgBox const& box) {
        shown << box.text();
        files << box.informativeText();
        QPushButton const* const preset = box.defaultButton();
        defaultLabels << (preset == nullptr ? QString() : preset->text().remove(QLatin1Char('&')));
        Answer const next = answers.isEmpty() ? Answer() : answers.dequeue();
        if (next.ticks)
            box.checkBox()->setChecked(true);
        if (next.meanwhile)
            next.meanwhile();
        for (QAbstractButton* const button : box.buttons()) {
            if (button->text().remove(QLatin1Char('&')) == next.label)
                return button;
        }
        ADD_FAILURE() << "unasked: " << qPrintable(box.text());
        return box.buttons().value(0);
    }

    QQueue<Answer> answers;
    QStringList shown;
    QStringList files;
    QStringList defaultLabels;
};
