#pragma once

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/OptionListWidget.h"
#include "app/launcher/OptionWidget.h"
#include "app/launcher/PromptChain.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

/// Answers the questions that a window puts through its launcher, as a user does at the keyboard. A question of another
/// title fails the test, and so does one that is still open at the end, or none where one is expected.
class PromptAnswers {
public:
    explicit PromptAnswers(MainWindow& window) : window(window) {}
    ~PromptAnswers() { EXPECT_EQ(openTitle(), QString()) << "an unasked question"; }

    /// Types `text` and presses Enter. Of several options it takes the best match.
    void answer(QString const& title, QString const& text) {
        type(title, text);
        press(Qt::Key_Return);
    }
    /// Chooses the option with exactly that text.
    void choose(QString const& title, QString const& option) {
        type(title, option);
        Launcher const* const launcher = window.getPaneView()->getLauncher();
        OptionListWidget const* const list = launcher == nullptr ? nullptr : launcher->getOptionList();
        for (int i = 0; list != nullptr && i < list->shownCount(); ++i) {
            if (list->shownRow(i)->getData().text == option) {
                press(Qt::Key_Return);
                return;
            }
            press(Qt::Key_Down);
        }
        ADD_FAILURE() << "not offered: " << qPrintable(option);
    }
    /// Types without pressing Enter.
    void type(QString const& title, QString const& text) {
        expect(title);
        if (Launcher* const launcher = window.getPaneView()->getLauncher())
            launcher->setEditorText(text);
    }
    void leave(QString const& title) {
        expect(title);
        press(Qt::Key_Escape);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        if (Launcher* const launcher = window.getPaneView()->getLauncher())
            QTest::keyClick(launcher->getEditor(), key, modifiers);
    }
    /// The question that is open has this title; empty for none.
    void expect(QString const& title) const { EXPECT_EQ(openTitle(), title); }
    /// What the open question's editor holds.
    QString editorText() const {
        Launcher const* const launcher = window.getPaneView()->getLauncher();
        return launcher == nullptr ? QString() : launcher->getEditor()->text();
    }
    QStringList options() const {
        QStringList texts;
        Launcher const* const launcher = window.getPaneView()->getLauncher();
        OptionListWidget const* const list = launcher == nullptr ? nullptr : launcher->getOptionList();
        for (int i = 0; list != nullptr && i < list->shownCount(); ++i)
            texts << list->shownRow(i)->getData().text;
        return texts;
    }

private:
    QString openTitle() const { return window.getPrompts()->currentTitle(); }

    MainWindow& window;
};
