#include "model/CellTexts.h"
#include "model/LossyCells.h"
#include "model/undo/ReplaceLineBreaksCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/WriteCellsCommand.h"
#include "tests/model/SelectionText.h"
#include "tests/model/TableModelFixture.h"

#include <QSignalSpy>
#include <QUndoStack>

namespace {

class LostCharactersTest : public TableModelFixture {
protected:
    LostCharactersTest() {
        load("a,b,c\nd,\"x\ny\",f\ng,h,i\n");
        model.setEncoding(EncodingType::Windows1252);
        RangeVector const corner = rangesFrom("C5,5");
        model.setSelection(modelCell(5, 5), corner);
    }

    /// The marked cells in the order of rows.
    std::string marked() const {
        QVariant const plain = model.index(2, 2).data(Qt::ForegroundRole);
        std::string result;
        for (int row = 0; row < 3; ++row) {
            for (int col = 0; col < 3; ++col) {
                if (model.index(row, col).data(Qt::ForegroundRole) != plain)
                    result += std::to_string(row) + std::to_string(col) + ' ';
            }
        }
        return result;
    }
    /// What the signal has told since the last call.
    std::string told() {
        std::string result;
        for (auto const& arguments : spy)
            result += std::to_string(arguments[0].toInt()) + ' ';
        spy.clear();
        return result;
    }
    static Range cell(int row, int col, QString const& text, RangeIndexType type = RangeIndexType::Model) {
        Range range(row, col, type);
        range.setValue(text);
        return range;
    }

    QSignalSpy spy{&model, &TableModel::lostCharactersSignal};
    QUndoStack stack;
};

TEST_F(LostCharactersTest, EachWayOfWritingMarksTheCellsAndTellsThemOnce) {
    auto const appended = [](QString const& text) { return text + QStringLiteral("日"); };
    RangeSet const firstCol = RangeSet(CellRegion({0, 0, 2, 0}));
    Range lineBreak = cell(1, 1, "x日y", RangeIndexType::Raw);
    lineBreak.setOldValue("x\ny");
    struct Case {
        QUndoCommand* command;
        std::string cells;
        std::string count;
        char const* shown;
    };
    Case const cases[] = {
        {new SetModelDataCommand(&model, {cell(0, 0, "é"), cell(0, 1, "日é"), cell(1, 0, "ą")}, false), "01 10 ", "2 ",
         "é ?é c|? x\ny f|g h i"},
        {new SetModelDataCommand(&model, firstCol, QStringLiteral("😀€"), false), "00 10 20 ", "3 ",
         "?€ b c|?€ x\ny f|?€ h i"},
        {new WriteCellsCommand(&model, firstCol, changedTexts(model, firstCol, appended), false), "00 10 20 ", "3 ",
         "a? b c|d? x\ny f|g? h i"},
        {new ReplaceLineBreaksCommand(&model, {lineBreak}), "11 ", "1 ", "a b c|d x?y f|g h i"},
        {new SetModelDataCommand(&model, {cell(1, 1, "é")}, false), "", "", "a b c|d é f|g h i"},
    };
    std::string const before = shown(3, 3);
    for (Case const& c : cases) {
        stack.push(c.command);
        std::string const text = c.command->text().toStdString();
        EXPECT_EQ(told(), c.count) << text;
        EXPECT_EQ(marked(), c.cells) << text;
        EXPECT_EQ(shown(3, 3), c.shown) << text;
        stack.undo();
        EXPECT_EQ(told(), c.count.empty() ? "" : "0 ") << text;
        EXPECT_EQ(marked(), "") << text;
        stack.redo();
        EXPECT_EQ(told(), c.count) << "once more";
        EXPECT_EQ(marked(), c.cells);
        stack.undo();
        EXPECT_EQ(shown(3, 3), before) << text;
        told();
    }
}

TEST_F(LostCharactersTest, MarksStayAtTheirCellsAndGoWithTheNextEdit) {
    model.getTableData().concealRawRow(1);
    stack.push(new SetModelDataCommand(&model, RangeSet(CellRegion({0, 1, 1, 1})), QStringLiteral("日"), false));
    EXPECT_EQ(told(), "2 ");
    EXPECT_EQ(marked(), "01 11 ") << "of the rows in sight";
    stack.push(new SetModelDataCommand(&model, {cell(0, 0, "é")}, false));
    EXPECT_EQ(told(), "0 ");
    EXPECT_EQ(marked(), "");
    stack.push(new SetModelDataCommand(&model, {cell(0, 0, "?日")}, false));
    EXPECT_EQ(marked(), "00 ");
    stack.push(new SetModelDataCommand(&model, {cell(0, 0, "日?")}, false));
    EXPECT_EQ(told(), "1 1 ") << "also where the bytes stay";
    load("日,1\n");
    EXPECT_EQ(told(), "0 ");
    EXPECT_EQ(marked(), "");
}

TEST_F(LostCharactersTest, MarksOfATransposedTableAreWhereTheUserSeesTheCells) {
    model.toggleTranspose();
    stack.push(new SetModelDataCommand(&model, {cell(0, 2, "日")}, false));
    stack.undo();
    EXPECT_EQ(marked(), "");
    stack.redo();
    EXPECT_EQ(marked(), "02 ");
    EXPECT_EQ(text(0, 2).toStdString(), "?");
}

TEST_F(LostCharactersTest, CellsThatAnEncodingCannotCarryAreFoundAndShownHoweverTheTableIsShown) {
    load("1,2\n3,4\n日,6\n7,日\n");
    model.toggleTranspose();
    auto const found = [this](bool visibleOnly) {
        return LossyCells::find(model, EncodingType::Windows1252, visibleOnly);
    };
    EXPECT_EQ(found(true), CellRegion::ofCells({{0, 2}, {1, 3}}));
    model.setAndApplyHiddenRowsList({0});
    model.setAndApplyHiddenColsList({1});
    EXPECT_EQ(found(true), CellRegion::ofCells({{1, 3}}));
    EXPECT_EQ(found(false).count(), 2);
    EXPECT_TRUE(LossyCells::select(model, found(false)));
    EXPECT_EQ(textOf(model.getSelection()), "C0,2*");
}

} // namespace
