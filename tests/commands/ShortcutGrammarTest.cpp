#include "commands/ShortcutGrammar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(ShortcutGrammar, readsAlternativesAndChords) {
    struct Case {
        char const* text;
        QStringList sequences;
    };
    Case const cases[] = {
        {"", {}},
        {"|", {}},
        {"ctrl+n", {"Ctrl+N"}},
        {"ctrl+e|f2", {"Ctrl+E", "F2"}},
        {"  CTRL+Shift+P |  Del ", {"Ctrl+Shift+P", "Del"}},
        {"ctrl+k,ctrl+u", {"Ctrl+K, Ctrl+U"}},
        {"ctrl+k, ctrl+u|alt+f3", {"Ctrl+K, Ctrl+U", "Alt+F3"}},
        {"f2||f3", {"F2", "F3"}},
        {"ctrl+nonsense|f4", {"F4"}},
        {"nonsense", {}},
        {"(none)", {}},
        {"alt+delete|alt+backspace", {"Alt+Del", "Alt+Backspace"}},
        {"alt+enter|alt+return", {"Alt+Enter", "Alt+Return"}},
        {"ctrl+pgdown|alt+0", {"Ctrl+PgDown", "Alt+0"}},
    };
    for (Case const& row : cases) {
        QStringList sequences;
        for (QKeySequence const& sequence : getKeySequenceList(QString::fromLatin1(row.text)))
            sequences += sequence.toString(QKeySequence::PortableText);
        EXPECT_EQ(sequences, row.sequences) << row.text << " gives " << qPrintable(sequences.join(" | "));
    }
}

TEST(ShortcutGrammar, EnterIsReturnAsWell) {
    struct Case {
        char const* text;
        QStringList others;
    };
    for (Case const& row : std::vector<Case>{{"ctrl+return", {}},
                                             {"f4", {}},
                                             {"ctrl+shift+enter", {"Ctrl+Shift+Return"}},
                                             {"ctrl+k,enter", {"Ctrl+K, Return"}},
                                             {"enter,enter", {"Return, Enter", "Enter, Return", "Return, Return"}}}) {
        QStringList others;
        for (QKeySequence const& sequence : withReturnForEnter(getKeySequenceList(row.text).first()))
            others += sequence.toString(QKeySequence::PortableText);
        EXPECT_EQ(others, row.others) << row.text << " gives " << qPrintable(others.join(" | "));
    }
}

} // namespace
