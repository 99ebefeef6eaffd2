#include "view/CellEdit.h"

#include "model/TableModel.h"

#include <QTemporaryFile>
#include <QUndoStack>
#include <gtest/gtest.h>

namespace {

Range cellAt(int row, int col) {
    return {row, col, RangeIndexType::Model};
}

/// A table of 3 by 3 cells with the letters a to i, and five empty rows and columns more to type into.
class CellEditTest : public testing::Test {
protected:
    CellEditTest() {
        file.open();
        file.write("a,b,c\nd,e,f\ng,h,i\n");
        file.flush();
        model.setNumBufferRows(5);
        model.setNumBufferCols(5);
        model.loadCSV(file.fileName(), false, false, QStringLiteral(","), QStringLiteral(","), EncodingType::Utf8,
                      ParsingStandard::Rfc4180);
    }

    QString texts() const { return texts(model.rowCountModel(), model.columnCountModel()); }
    QString texts(int rowCount, int colCount) const {
        QStringList rows;
        for (int row = 0; row < rowCount; ++row) {
            QStringList cells;
            for (int col = 0; col < colCount; ++col)
                cells << text(row, col);
            rows << cells.join(',');
        }
        return rows.join(' ');
    }
    /// What is told of the size from now on, and the present size in front.
    static void noteSizes(TableModel& model, QStringList& told) {
        auto const note = [&told](int rows, int cols) { told << QStringLiteral("%1 x %2").arg(rows).arg(cols); };
        note(model.rowCountRaw(), model.columnCountRaw());
        QObject::connect(&model, &TableModel::tableSizeChangedSignal, &model, note);
    }
    QString text(int row, int col) const { return model.index(row, col).data(Qt::EditRole).toString(); }

    QTemporaryFile file;
    TableModel model;
    QUndoStack stack;
};

struct EditCase {
    char const* name;
    RangeVector selection;
    char const* after;
    QString size;
};

RangeVector rowWithout(int row, int col) {
    Range range(row, RangeType::Row, RangeIndexType::Model);
    range.col = 0;
    range.hasMainCell = true;
    range.mainIndex = 0;
    range.setExcludedCols({col});
    return {range};
}

RangeVector mainAndOther(int row, int col) {
    Range main = cellAt(0, 0);
    main.hasMainCell = true;
    return {main, cellAt(row, col)};
}

} // namespace

TEST_F(CellEditTest, WritesEveryShapeOfSelectionWithOneCommandThatUndoTakesBackWhole) {
    QString const before = texts();
    QStringList told;
    noteSizes(model, told);
    std::vector<EditCase> const cases = {
        {"cells", mainAndOther(2, 2), "x,b,c d,e,f g,h,x", "3 x 3"},
        {"beyond the data", mainAndOther(4, 4), "x,b,c,, d,e,f,, g,h,i,, ,,,, ,,,,x", "5 x 5"},
        {"row", rowWithout(1, 1), "a,b,c,,,,, x,x,x,x,x,x,x,x g,h,i,,,,,", "3 x 8"},
    };
    for (EditCase const& each : cases) {
        SCOPED_TRACE(each.name);
        model.setSelection(each.selection, true);
        model.enforceTableSize();
        CellEdit edit(model);
        edit.setText(QStringLiteral("w"), false);
        edit.setText(QStringLiteral("x"), false);
        // All cells show the text, and the data are as before.
        auto const [rows, cols] = std::pair(model.rowCount(), model.columnCount());
        QString const pending = texts(rows, cols);
        EXPECT_EQ(std::pair(model.rowCountRaw(), model.columnCountRaw()), std::pair(3, 3));
        // The size that is told is what the cells need that show the text.
        EXPECT_EQ(told.last(), each.size);
        edit.setText(QString(), false);
        EXPECT_EQ(told.last(), QStringLiteral("3 x 3"));
        edit.setText(QStringLiteral("x"), true);
        EXPECT_EQ(told.last(), each.size);
        edit.setText(QStringLiteral("x"), false);
        EXPECT_EQ(model.getTableData().getValueModel(0, 0).toString(), "a");
        auto command = edit.finish();
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(texts().toStdString(), before.toStdString());
        stack.push(command.release());
        EXPECT_EQ(texts().toStdString(), each.after);
        EXPECT_EQ(texts(rows, cols).toStdString(), pending.toStdString());
        stack.undo();
        EXPECT_EQ(texts().toStdString(), before.toStdString());
    }
}

TEST_F(CellEditTest, LeavesCellsOutThatWereTakenOutOfTheSelection) {
    QString const before = texts();
    Range table(RangeType::Table, RangeIndexType::Model);
    model.setSelection(cellAt(0, 0), RangeVector{table});
    ASSERT_TRUE(model.removeCellFromSelection(1, 1));
    ASSERT_TRUE(model.removeCellFromSelection(2, 0));
    model.addCellToSelection(cellAt(2, 0));
    EXPECT_EQ(leftOutCells(model.getSelectedSet(), {3, 3}), CellRegion({1, 1, 1, 1}));
    CellEdit edit(model);
    edit.setText(QStringLiteral("x"), false);
    EXPECT_EQ(texts(3, 3), QStringLiteral("x,x,x x,x,x x,x,x"));
    stack.push(edit.finish(LeftOut::Leave).release());
    EXPECT_EQ(texts(3, 3), QStringLiteral("x,x,x x,e,x x,x,x"));
    stack.undo();
    EXPECT_EQ(texts(), before);
}

TEST_F(CellEditTest, LeavesTheCellUnderAnEditorToTheEnd) {
    model.setSelection(mainAndOther(1, 1), true);
    CellEdit edit(model);
    edit.setText(QStringLiteral("x"), true);
    EXPECT_EQ(texts(), QStringLiteral("a,b,c d,x,f g,h,i"));
    stack.push(edit.finish().release());
    EXPECT_EQ(texts(), QStringLiteral("x,b,c d,x,f g,h,i"));
}

TEST_F(CellEditTest, MakesNoCommandForTheTextsThatWereThere) {
    model.setSelection(cellAt(1, 1));
    CellEdit untouched(model);
    EXPECT_EQ(untouched.finish(), nullptr);
    CellEdit edit(model);
    edit.setText(QStringLiteral("ex"), true);
    edit.setText(QStringLiteral("e"), true);
    EXPECT_EQ(edit.finish(), nullptr);
    // One of two cells changes.
    model.setSelection(mainAndOther(1, 1), true);
    CellEdit half(model);
    half.setText(QStringLiteral("a"), true);
    EXPECT_NE(half.finish(), nullptr);
}

TEST_F(CellEditTest, BytesThatMeanNothingStayUnlessTheyAreEditedAndGoNowhereElse) {
    file.resize(0);
    file.write("a\xff"
               "b\xfe,\xff\n");
    file.flush();
    model.loadCSV(file.fileName(), false, false, QStringLiteral(","), QStringLiteral(","), EncodingType::Utf8,
                  ParsingStandard::Rfc4180);
    struct Case {
        char16_t const* text;
        char const* bytes; ///< null if there is nothing to write
    };
    Case const cases[] = {{u"a\ufffdb\ufffd", nullptr},
                          {u"a\ufffdb\ufffdx", "a\xff"
                                               "b\xfex"},
                          {u"a\ufffdxb\ufffd", "a\xffxb\xfe"},
                          {u"\ufffdb\ufffd", "\xff"
                                             "b\xfe"},
                          {u"new", "new"}};
    for (Case const& each : cases) {
        model.setSelection(cellAt(0, 0));
        CellEdit edit(model);
        edit.setText(QString::fromUtf16(each.text), true);
        auto command = edit.finish();
        ASSERT_EQ(command != nullptr, each.bytes != nullptr);
        if (command == nullptr)
            continue;
        stack.push(command.release());
        EXPECT_EQ(model.getTableData().cellBytesRaw(0, 0), each.bytes);
        stack.undo();
        EXPECT_EQ(model.getTableData().cellBytesRaw(0, 0), "a\xff"
                                                           "b\xfe");
    }
    model.setSelection(mainAndOther(0, 1), true);
    CellEdit both(model);
    QString const longer = QStringLiteral("a\ufffdb\ufffdc");
    both.setText(longer, true);
    stack.push(both.finish().release());
    EXPECT_EQ(text(0, 0), longer);
    EXPECT_EQ(text(0, 1), longer);
}
