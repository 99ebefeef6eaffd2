#include "tests/app/WindowFixture.h"
#include "tests/support/Typing.h"
#include "view/EditorPane.h"
#include "view/HeaderView.h"

#include <QPushButton>

namespace {

/// A table of 60 by 30 cells that hold their row and column, in a window of which the keys go to its table.
class EditEnds : public WindowFixture {
public:
    using WindowFixture::model;
    using WindowFixture::run;
    using WindowFixture::table;

    static constexpr int rows = 60;
    static constexpr int cols = 30;

    static QString original(int row, int col) { return QStringLiteral("%1:%2").arg(row).arg(col); }
    void begin(bool inPane) {
        QByteArray content;
        for (int row = 0; row < rows; ++row) {
            for (int col = 0; col < cols; ++col)
                content += (col > 0 ? "," : "") + original(row, col).toUtf8();
            content += '\n';
        }
        open(content, QStringLiteral("%1.csv").arg(files++));
        window.resize(700, 500);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        window.getPaneView()->showEditorPane(inPane, false);
        table()->setFocus();
        table()->moveSelectionAbsolute(5, 1);
        QCoreApplication::processEvents();
    }
    bool isAt(int row, int col) const { return model().getMainCell() == Range(row, col, RangeIndexType::Model); }
    void click(QWidget* on, QPoint at) { QTest::mouseClick(on, Qt::LeftButton, {}, at); }
    /// What differs from the table as it was loaded.
    std::string changes() const {
        QStringList found;
        for (int row = 0; row < model().rowCount(); ++row) {
            for (int col = 0; col < model().columnCount(); ++col) {
                if (row < rows && col < cols ? cell(row, col) != original(row, col) : !cell(row, col).isEmpty())
                    found << QStringLiteral("%1:%2=%3").arg(row).arg(col).arg(cell(row, col));
            }
        }
        return found.join(QLatin1Char(' ')).toStdString();
    }

    int files = 0;
};

struct Move {
    char const* name;
    void (*carryOut)(EditEnds&);
};

void command(EditEnds& test, char const* name) {
    test.run(QString::fromLatin1(name));
}

Move const moves[] = {
    {"down one screen", [](EditEnds& t) { command(t, "Go Down One Screen"); }},
    {"right one screen", [](EditEnds& t) { command(t, "Go Right One Screen"); }},
    {"to the top", [](EditEnds& t) { command(t, "Go to Top"); }},
    {"to the bottom", [](EditEnds& t) { command(t, "Go to Bottom"); }},
    {"far left", [](EditEnds& t) { command(t, "Go to Far Left"); }},
    {"far right", [](EditEnds& t) { command(t, "Go to Far Right"); }},
    {"a step", [](EditEnds& t) { command(t, "Move Selection Down"); }},
    {"to a cell", [](EditEnds& t) { t.run(QStringLiteral("Go to Cell"), {QStringLiteral("10:3")}); }},
    {"by blocks", [](EditEnds& t) { t.table()->moveSelectionByBlock(Direction::Down); }},
    {"to the end", [](EditEnds& t) { t.table()->moveSelectionToEndOfTable(Direction::Right); }},
    {"main cell alone", [](EditEnds& t) { t.table()->setMainCell(modelCell(9, 2)); }},
    {"several cells",
     [](EditEnds& t) { t.model().setSelection(modelCell(7, 2), RangeSet(RangeVector{modelCell(7, 2)})); }},
    {"a click",
     [](EditEnds& t) { t.click(t.table()->viewport(), t.table()->visualRect(t.model().index(8, 2)).center()); }},
    {"a click on a header",
     [](EditEnds& t) {
         t.click(t.table()->verticalHeader()->viewport(),
                 {5, t.table()->rowViewportPosition(7) + t.table()->rowHeight(7) / 2});
     }},
};

} // namespace

TEST_F(EditEnds, WhoeverMovesTheMainCellLeavesTheTextWhereItWasTyped) {
    for (bool const inPane : {true, false}) {
        for (Move const& move : moves) {
            SCOPED_TRACE(std::string(move.name) + (inPane ? " in the pane" : " in the grid"));
            begin(inPane);
            typeText(QStringLiteral("Q"));
            ASSERT_TRUE(table()->isEditing());
            move.carryOut(*this);
            EXPECT_FALSE(table()->isEditing());
            EXPECT_FALSE(table()->getPendingEdit().has_value());
            Range const there = model().getMainCell();
            EXPECT_FALSE(isAt(5, 1));
            EXPECT_EQ(changes(), "5:1=Q");
            // The next text belongs to the cell that is the main one now.
            model().setSelection(there);
            table()->setFocus();
            typeText(QStringLiteral("W"));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QCoreApplication::processEvents();
            QString const second = QStringLiteral("%1:%2=W").arg(there.row).arg(there.col);
            bool const ahead = there.row < 5 || (there.row == 5 && there.col < 1);
            EXPECT_EQ(changes(), (ahead ? second + " 5:1=Q" : "5:1=Q " + second).toStdString());
            EXPECT_EQ(table()->undoStack()->count(), 2);
            table()->undo();
            table()->undo();
            EXPECT_EQ(changes(), "");
            EXPECT_TRUE(isAt(5, 1));
        }
    }
}

TEST_F(EditEnds, TheSelectionOfTheMoveStaysAndSoDoesAFocusElsewhere) {
    begin(true);
    typeText(QStringLiteral("Q"));
    QPushButton elsewhere(&window);
    elsewhere.show();
    elsewhere.setFocus(Qt::OtherFocusReason);
    select("C8,2 C9,4 C3,3");
    EXPECT_EQ(selection(), inOrder("C8,2* C9,4 C3,3"));
    EXPECT_EQ(changes(), "5:1=Q");
    EXPECT_TRUE(elsewhere.hasFocus());
}

TEST_F(EditEnds, AStepOfTheUndoStackComesBehindTheEditThatIsOpen) {
    for (bool const inPane : {true, false}) {
        begin(inPane);
        typeText(QStringLiteral("Q"));
        change(QStringLiteral("other"), 9, 2);
        EXPECT_EQ(changes(), "5:1=Q 9:2=other");
        EXPECT_TRUE(isAt(9, 2));
        model().setSelection(modelCell(5, 2));
        table()->setFocus();
        typeText(QStringLiteral("W"));
        table()->undo();
        EXPECT_FALSE(table()->isEditing());
        EXPECT_EQ(changes(), "5:1=Q 9:2=other");
        table()->redo();
        EXPECT_EQ(changes(), "5:1=Q 5:2=W 9:2=other");
        // The rows go with their texts.
        model().setSelection(modelCell(6, 0));
        table()->setFocus();
        typeText(QStringLiteral("zz"));
        table()->sortRowsOrCols({SortType::Descending, Axis::Rows, 0});
        EXPECT_FALSE(table()->isEditing());
        EXPECT_EQ(cell(1, 0), QStringLiteral("zz"));
        EXPECT_EQ(cell(1, 1), original(6, 1));
    }
}
