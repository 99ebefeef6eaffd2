#include "view/DocumentText.h"

#include <QTextCursor>
#include <QTextDocument>
#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

/// Characters that a document or its plain text makes others of, and some that need care.
QString const pieces[] = {QStringLiteral("\n"),     QStringLiteral("\r\n"),   QStringLiteral("\r"),
                          QStringLiteral("\u2029"), QStringLiteral("\u2028"), QStringLiteral("\ufdd0"),
                          QStringLiteral("\ufdd1"), QStringLiteral("\u00a0"), QString(QChar(0)),
                          QString(QChar(1)),        QString(QChar(0x7f)),     QString(QChar(0xd83d)),
                          QString(QChar(0xde00)),   QString(QChar(0xfffc)),   QString(QChar(0xfffd)),
                          QString(QChar(0xfeff)),   QStringLiteral("\t"),     QStringLiteral(" ")};
constexpr int breakPieces = 7;

/// A cell as a list of the characters that a document has for it.
using Atoms = std::vector<QString>;

QString joined(Atoms const& atoms) {
    QString text;
    for (QString const& atom : atoms)
        text += atom;
    return text;
}

class DocumentTextRandomTest : public testing::TestWithParam<unsigned> {
public:
    int random(int below) { return int(generator() % unsigned(below)); }
    Atoms randomAtoms(int most) {
        Atoms atoms;
        for (int count = random(most + 1); count > 0; --count) {
            QString const piece = random(2) == 0 ? QString(QChar(u'a' + random(3))) : pieces[random(std::size(pieces))];
            bool const joinsBreak = piece == QStringLiteral("\n") && !atoms.empty() && atoms.back().endsWith(u'\r');
            if (!joinsBreak)
                atoms.push_back(piece);
        }
        return atoms;
    }
    /// What typing or pasting makes of it.
    static Atoms typed(Atoms atoms) {
        for (QString& atom : atoms) {
            if (std::find(pieces, pieces + breakPieces, atom) != pieces + breakPieces)
                atom = QStringLiteral("\n");
        }
        return atoms;
    }
    QTextCursor cursorAt(int from, int length = 0) {
        QTextCursor cursor(&document);
        cursor.setPosition(from);
        cursor.setPosition(from + length, QTextCursor::KeepAnchor);
        return cursor;
    }

    void load() {
        atoms = randomAtoms(12);
        document.setPlainText(joined(atoms));
        text.wasSet(joined(atoms));
        past.clear();
    }
    void insert() {
        int const at = random(int(atoms.size()) + 1);
        Atoms const added = randomAtoms(3);
        cursorAt(at).insertText(joined(added));
        Atoms const more = typed(added);
        atoms.insert(atoms.begin() + at, more.begin(), more.end());
    }
    void remove() {
        int const at = random(int(atoms.size()) + 1);
        int const length = random(int(atoms.size()) - at + 1);
        cursorAt(at, length).removeSelectedText();
        atoms.erase(atoms.begin() + at, atoms.begin() + at + length);
    }
    void replace() {
        int const at = random(int(atoms.size()) + 1);
        int const length = random(int(atoms.size()) - at + 1);
        Atoms added = randomAtoms(3);
        added.push_back(QStringLiteral("z"));
        cursorAt(at, length).insertText(joined(added));
        added = typed(added);
        atoms.erase(atoms.begin() + at, atoms.begin() + at + length);
        atoms.insert(atoms.begin() + at, added.begin(), added.end());
    }
    /// A selection that is dragged behind what follows it, one character of which marks where it goes.
    void drag() {
        if (atoms.size() < 3)
            return;
        int const from = random(int(atoms.size()) - 2);
        int const to = from + 2 + random(int(atoms.size()) - from - 2);
        QString const before = document.toRawText();
        QTextCursor cursor = cursorAt(from, 1);
        QString const moved = cursor.selectedText();
        cursor.beginEditBlock();
        cursor.removeSelectedText();
        cursor.setPosition(to - 1);
        cursor.insertText(moved);
        cursor.endEditBlock();
        // Line breaks that pass one another are the text that was there.
        if (document.toRawText() == before)
            return;
        std::rotate(atoms.begin() + from, atoms.begin() + from + 1, atoms.begin() + to);
    }
    void undo() {
        document.undo();
        recall();
    }
    void redo() {
        document.redo();
        recall();
    }
    /// Undo takes several edits at once if it likes; which ones tells the document alone.
    void recall() {
        QString const content = document.toRawText();
        auto const found =
            std::find_if(past.rbegin(), past.rend(), [&](auto const& state) { return state.first == content; });
        ASSERT_NE(found, past.rend());
        atoms = found->second;
    }

    std::mt19937 generator{GetParam()};
    QTextDocument document;
    DocumentText text{&document};
    Atoms atoms;
    std::vector<std::pair<QString, Atoms>> past;
};

} // namespace

TEST_P(DocumentTextRandomTest, OnlyWhatIsEditedChanges) {
    using T = DocumentTextRandomTest;
    std::pair<char const*, void (T::*)()> const steps[] = {
        {"insert", &T::insert}, {"remove", &T::remove}, {"replace", &T::replace}, {"drag", &T::drag},
        {"undo", &T::undo},     {"undo", &T::undo},     {"redo", &T::redo}};
    std::string trace;
    for (int step = 0; step < 200 && !HasFatalFailure(); ++step) {
        if (step % 20 == 0)
            load();
        past.emplace_back(document.toRawText(), atoms);
        auto const& [name, carryOut] = steps[step % 20 == 0 ? 0 : random(int(std::size(steps)))];
        trace += std::string(name) + ' ';
        SCOPED_TRACE(trace);
        (this->*carryOut)();
        ASSERT_EQ(text.text(), joined(atoms));
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DocumentTextRandomTest, testing::Range(1U, 41U));

TEST(DocumentText, AChangeTakenBackLeavesTheTextAsItWas) {
    QTextDocument document;
    DocumentText text(&document);
    QString const stored = QStringLiteral("a\r\nb\rc\u2029d\u2028e\u00a0f");
    document.setPlainText(stored);
    text.wasSet(stored);
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    EXPECT_EQ(text.text(), QString());
    cursor.insertText(QStringLiteral("x\r\ny"));
    EXPECT_EQ(text.text(), QStringLiteral("x\ny"));
    while (document.isUndoAvailable())
        document.undo();
    EXPECT_EQ(text.text(), stored);
}
