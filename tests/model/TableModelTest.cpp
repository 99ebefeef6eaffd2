#include "model/LineBreakCells.h"
#include "tests/model/TableModelFixture.h"

#include <QSignalSpy>

#include <climits>

namespace {

constexpr auto Raw = RangeIndexType::Raw;
constexpr auto Model = RangeIndexType::Model;

using TableModelTest = TableModelFixture;

TEST_F(TableModelTest, LongTextsAreCutForDisplayOnly) {
    QByteArray const longest(4096, 'x');
    QByteArray const longer(5000, 'y');
    load(longest + ',' + longer + '\n');
    EXPECT_EQ(text(0, 0), QString(longest));
    EXPECT_EQ(text(0, 1), QString(longer.left(4093)) + "...");
    EXPECT_EQ(text(0, 1, Qt::EditRole), QString(longer));
}

TEST_F(TableModelTest, RolesFlagsAndIndexes) {
    load("a,b\nc,d\n");
    model.setNumberOfHeaderCols(1);
    model.setTextSize(13);
    auto const font = [&](int row, int col) { return model.data(model.index(row, col), Qt::FontRole).value<QFont>(); };
    EXPECT_EQ(font(0, 1).weight(), 700);
    EXPECT_EQ(font(1, 0).weight(), 700);
    EXPECT_EQ(font(1, 1).weight(), 400);
    EXPECT_EQ(font(1, 1).pixelSize(), 13);
    model.setHighlightHeaderRows(false);
    EXPECT_EQ(font(0, 1).weight(), 400);

    EXPECT_EQ(int(model.flags(model.index(0, 0))), 34);
    EXPECT_EQ(int(model.flags(QModelIndex())), 0);
    EXPECT_EQ(model.rowCount(model.index(0, 0)), 0);
    EXPECT_TRUE(model.index(900, 900).isValid());
    EXPECT_FALSE(model.data(model.index(-1, 0)).isValid());
    EXPECT_FALSE(model.data(model.index(0, 0), Qt::ToolTipRole).isValid());
    EXPECT_FALSE(model.dataRaw(QModelIndex()).isValid());
}

TEST_F(TableModelTest, HeadersShowNumbersLettersAndTheSort) {
    load("a,b\nc,d\ne,f\n");
    model.setFirstRowIndex(1);
    model.concealRawRows({1});
    model.enforceTableSize();
    model.setRowSortData({SortType::Descending, Axis::Rows, 1});
    model.setColSortData({SortType::Ascending, Axis::Columns, 2});
    auto const header = [&](Qt::Orientation orientation, int section) {
        return model.headerData(section, orientation).toString();
    };
    EXPECT_EQ(header(Qt::Vertical, 0), "1");
    EXPECT_EQ(header(Qt::Vertical, 1), QStringLiteral("3 ") + QChar(0x2191));
    EXPECT_EQ(model.headerData(-1, Qt::Vertical).toInt(), INT_MIN);
    EXPECT_EQ(header(Qt::Horizontal, 0), "0");
    EXPECT_EQ(header(Qt::Horizontal, 1), QStringLiteral("1 ") + QChar(0x2193));
    model.setRepresentColumnsAsLetters(true);
    EXPECT_EQ(header(Qt::Horizontal, 0), "A");
    EXPECT_EQ(header(Qt::Horizontal, 1), QStringLiteral("B ") + QChar(0x2193));
    model.setRowSortData({SortType::None, Axis::Rows, 1});
    EXPECT_EQ(header(Qt::Horizontal, 1), "B");
    EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::FontRole).value<QFont>().family(), "Lucida Sans Unicode");
    EXPECT_FALSE(model.headerData(0, Qt::Vertical, Qt::EditRole).isValid());

    QSignalSpy const changed(&model, &QAbstractItemModel::headerDataChanged);
    EXPECT_FALSE(model.setHeaderData(0, Qt::Horizontal, "A", Qt::DisplayRole));
    EXPECT_TRUE(model.setHeaderData(0, Qt::Horizontal, "B", Qt::DisplayRole));
    EXPECT_EQ(changed.size(), 1);
    model.concealRawCols({0});
    EXPECT_EQ(header(Qt::Horizontal, 0), "B");
    model.setRepresentColumnsAsLetters(false);
    model.setFirstColIndex(5);
    EXPECT_EQ(header(Qt::Horizontal, 0), "6");
}

TEST_F(TableModelTest, HeaderRowsAreCountedInStoredRows) {
    load("a,b\nc,d\ne,f\ng,h\n");
    model.setNumberOfHeaderRows(2);
    model.concealRawRows({0, 3});
    EXPECT_EQ(model.getNumHeaderRows(), 2);
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 1);
    EXPECT_EQ(model.getColumnLabels({1, 0}), (QList<QString>{"d", "c"}));
    model.setNumberOfHeaderRows(2);
    EXPECT_EQ(model.getNumHeaderRows(), 3);
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 2);
    model.setNumberOfHeaderRows(0);
    EXPECT_EQ(model.getNumHeaderRows(), 0);
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 0);
    QString label = "kept";
    model.getColumnLabel(label, -2);
    EXPECT_EQ(label, "kept");
    model.getColumnLabel(label, 1);
    EXPECT_EQ(label, "d");
    model.concealRawRows({0, 1, 2, 3});
    EXPECT_TRUE(model.getColumnLabels({0}).isEmpty());
}

TEST_F(TableModelTest, FindsTheRowOfTitles) {
    load("x,y,z\nName,z,Value\nValue,Name,Type\n");
    auto const find = [&](int required, int maxRows, int maxCols) {
        int row = 9;
        std::vector<int> columns;
        model.getHeaderRowInformation(row, columns, {"Name", "Type", "Value"}, required, maxRows, maxCols);
        columns.push_back(row);
        return columns;
    };
    EXPECT_EQ(find(-1, 100, 100), (std::vector<int>{1, 2, 0, 2}));
    EXPECT_EQ(find(2, 100, 100), (std::vector<int>{0, -1, 2, 1}));
    EXPECT_EQ(find(-1, 2, 100), (std::vector<int>{-1, -1, -1, -1}));
    EXPECT_EQ(find(2, 100, 2), (std::vector<int>{1, -1, 0, 2}));
}

TEST_F(TableModelTest, EditsSignalTheirCellsOnceEach) {
    load("a,b,c\nd,e,f\ng,h,i\n");
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    auto const told = [&changed] {
        QStringList places;
        for (QVariantList const& signal : changed) {
            auto const first = signal[0].toModelIndex();
            auto const last = signal[1].toModelIndex();
            places << QString("%1,%2-%3,%4").arg(first.row()).arg(first.column()).arg(last.row()).arg(last.column());
            EXPECT_TRUE(signal[2].value<QList<int>>().isEmpty());
        }
        changed.clear();
        return places.join(' ').toStdString();
    };
    EXPECT_TRUE(model.setData(model.index(1, 0), "D"));
    EXPECT_EQ(told(), "1,0-1,0");
    EXPECT_FALSE(model.setData(model.index(1, 0), "D"));
    EXPECT_EQ(told(), "1,0-1,0");
    // The first visible row and column are written in silence.
    for (auto const& [row, col] : {std::pair(0, 1), std::pair(1, 0), std::pair(0, 0)})
        EXPECT_TRUE(model.setDataRaw(model.index(row, col), "raw"));
    EXPECT_EQ(told(), "");
    EXPECT_TRUE(model.setDataRaw(model.index(1, 2), "F"));
    EXPECT_EQ(told(), "1,2-1,2");
    EXPECT_TRUE(model.setDataDirectly(model.index(1, 1), "E"));
    EXPECT_EQ(told(), "");
    EXPECT_EQ(shown(), "raw raw c|raw E F|g h i");
    EXPECT_EQ(model.dataRaw(model.index(1, 1)), "E");

    model.concealRawRows({1});
    model.concealRawCols({1});
    model.enforceTableSize();
    changed.clear();
    RangeVector cells{Range(2, 2, Raw), Range(1, 1, Raw), Range(0, 1, Model)};
    for (Range& cell : cells)
        cell.setValue("x");
    model.populateExistingCells(cells, false);
    EXPECT_TRUE(model.setDataRaw(model.index(2, 2), "I"));
    EXPECT_EQ(told(), "1,1-1,1 0,1-0,1 1,1-1,1");
    EXPECT_EQ(shown(), "raw x|g I");
    EXPECT_EQ(model.dataRaw(model.index(1, 1)), "x");
}

TEST_F(TableModelTest, RowsAndColumnsComeAndGo) {
    load("a,b\nc,d\ne,f\n");
    EXPECT_TRUE(model.insertRows(1, 2));
    EXPECT_TRUE(model.insertColumns(0, 1));
    EXPECT_EQ(shown(), "- a b|- - -|- - -|- c d|- e f");
    EXPECT_TRUE(model.removeColumns(0, 1));
    model.removeRows(std::vector<int>{1, 2});
    EXPECT_EQ(shown(), "a b|c d|e f");
    model.concealRawRows({1});
    model.enforceTableSize();
    EXPECT_TRUE(model.insertRowsRaw(1, 1));
    EXPECT_EQ(shown(), "a b|- -|e f");
    EXPECT_EQ(model.getTableData().getConcealedRowsRaw(), std::vector<int>{2});
    EXPECT_TRUE(model.insertColumnsRaw(2, 1));
    model.insertCols({0});
    model.removeCols({0, 3});
    EXPECT_TRUE(model.removeRows(0, 2));
    model.showAllRows();
    model.enforceTableSize();
    EXPECT_EQ(shown(), "c d|e f");
    EXPECT_TRUE(model.insertRows(0, 0));
    EXPECT_TRUE(model.removeRows(-1, 1));
    EXPECT_EQ(model.rowCountRaw(), 2);

    model.setDataAlreadyChanged(true);
    EXPECT_TRUE(model.insertRows(2, 3));
    model.setDataAlreadyChanged(false);
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(model.rowCountRaw(), 2);
}

TEST_F(TableModelTest, LayoutSignalsOfInsertsCanBeLeftOut) {
    load("a,b\n");
    QSignalSpy const layout(&model, &QAbstractItemModel::layoutChanged);
    model.insertRows(0, 1);
    EXPECT_EQ(layout.size(), 1);
    model.setSkipLayoutSignals(true);
    model.insertColumns(0, 1);
    model.removeRows(0, 1);
    EXPECT_EQ(layout.size(), 1);
}

TEST_F(TableModelTest, GridOffersBufferAndMinimum) {
    load("");
    model.setNumBufferRows(5);
    model.setNumBufferCols(2);
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(5, 2));
    model.setMinNumTableRows(100);
    EXPECT_EQ(model.rowCount(), 100);
    model.setMinNumTableRows(0);
    model.setSelection(Range(20, 9, Model));
    model.enforceTableSize();
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(26, 12));
    EXPECT_TRUE(model.setData(model.index(20, 9), "far"));
    model.enforceTableSize();
    EXPECT_EQ(model.rowCountRaw(), 21);

    load("a,b\nc,d\n", false, true);
    EXPECT_EQ(shown(), "a b|c d");
    EXPECT_FALSE(model.insertRows(0, 1));
    EXPECT_FALSE(model.removeColumns(0, 1));
    EXPECT_EQ(model.getMainCell(), Range(1, 1, Model));
}

TEST_F(TableModelTest, EmptyLinesEndWhereTheGridMustButDataStay) {
    model.setNumBufferRows(5);
    model.setMinNumTableCols(1000000);
    model.setLoadLimits({3, 100});
    load("a,b\nc,d\n");
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(3, 100));
    model.setSelection(Range(2, 99, Model));
    model.enforceTableSize();
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(3, 100));
    model.setLoadLimits({1, 3});
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(2, 3));
    EXPECT_LT(model.getMainCell().row, 2);
    EXPECT_LT(model.getMainCell().col, 3);
    EXPECT_EQ(text(1, 1), "d");
    model.setLoadLimits({});
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(7, 1000000));
}

TEST_F(TableModelTest, SelectionFollowsRowsThatAreGone) {
    load("a,b\nc,d\ne,f\ng,h\n");
    model.setNumBufferRows(3);
    model.setSelection(Range(3, 0, Model), {Range(0, 1, Model), Range(3, 0, Model), Range(3, RangeType::Row, Model)});
    QSignalSpy const selected(&model, &TableModel::selectionChangedSignal);
    QSignalSpy const mainCell(&model, &TableModel::mainCellChangedSignal);
    model.removeRowsFromDataRaw(1, 3);
    bool changed = false;
    model.removeExtraneousRows(changed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.getMainCell(), Range(0, 0, Model));
    EXPECT_EQ(mainCell.last()[0].value<Range>().value(), "a");
    EXPECT_EQ(selected.size(), 1);
    model.removeExtraneousRows(changed);
    EXPECT_FALSE(changed);
}

TEST_F(TableModelTest, SelectionFollowsColumnsThatAreGone) {
    load("a,b,c,d\n");
    model.setNumBufferCols(3);
    model.setSelection(Range(0, 3, Model),
                       {Range(1, 0, Model), Range(0, 3, Model), Range(3, RangeType::Column, Model)});
    model.removeColumnsFromDataRaw(1, 3);
    bool changed = false;
    model.removeExtraneousCols(changed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(model.columnCount(), 4);
    EXPECT_EQ(model.getMainCell(), Range(0, 0, Model));
}

TEST_F(TableModelTest, ConcealedAndTransposedTablesStayInStep) {
    load("a,b\nc,d\ne,f\n");
    model.setNumBufferRows(1);
    model.setMinNumTableCols(4);
    model.concealRawRows({1});
    model.enforceTableSize();
    EXPECT_EQ(shown(), "a b - -|e f - -|- - - -");
    QSignalSpy const toggled(&model, &TableModel::toggleTransposeSignal);
    model.toggleTranspose();
    EXPECT_EQ(toggled.size(), 1);
    EXPECT_EQ(shown(), "a e -|b f -|- - -|- - -");
    model.enforceTableSize();
    EXPECT_EQ(shown(), "a e - -|b f - -|- - - -");
    EXPECT_EQ(model.getRawFromModelCols({1}), std::vector<int>{2});
}

TEST_F(TableModelTest, TransposingCountsTheVisibleHeaderRowsAnew) {
    load("a,b,c\nd,e,f\ng,h,i\n");
    model.setNumberOfHeaderRows(2);
    model.setAndApplyHiddenRowsList({0});
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 1);
    model.toggleTranspose();
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 2);
    model.setAndApplyHiddenRowsList({0, 1});
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 0);
    model.toggleTranspose();
    EXPECT_EQ(model.getNumVisibleHeaderRows(), 1);
}

TEST_F(TableModelTest, WhoIsToldOfHiddenRowsFindsAGridThatHoldsTheData) {
    load("a\nb\nc\n");
    model.setAndApplyHiddenRowsList({0, 1, 2});
    int rows = -1;
    QObject::connect(&model, &TableModel::updateStatusBarSignal, &model, [&] { rows = model.rowCount(); });
    model.setAndApplyHiddenRowsList({});
    EXPECT_GE(rows, 3);
}

TEST_F(TableModelTest, MovesTakeTheLoweredTargetAsDistance) {
    load("a\nb\nc\nd\n");
    EXPECT_FALSE(model.moveRowAbsolute(-1, 0));
    EXPECT_FALSE(model.moveColumnAbsolute(0, -1));
    EXPECT_TRUE(model.moveRowAbsolute(0, 2));
    EXPECT_EQ(shown(), "b|a|c|d");
    load("a,b,c,d\n");
    EXPECT_TRUE(model.moveColumnAbsolute(0, 2));
    EXPECT_EQ(shown(), "b a c d");
}

TEST_F(TableModelTest, LineBreaksAreFoundAtTheirStoredPlacesHoweverTheTableIsShown) {
    load("\"x\ny\",1,\"p\rq\"\n2,\"r\r\ns\",3\n");
    auto const found = [this](bool visibleOnly) {
        std::string places;
        LineBreakCells::forEach(model, visibleOnly, [&](int row, int col, QString const& text) {
            places += std::to_string(row) + ',' + std::to_string(col) + ' ' + text.at(0).toLatin1() + '|';
        });
        return places;
    };
    EXPECT_EQ(found(true), "0,0 x|0,2 p|1,1 r|");
    model.setAndApplyHiddenColsList({2});
    EXPECT_EQ(found(true), "0,0 x|1,1 r|");
    model.setAndApplyHiddenRowsList({0});
    EXPECT_EQ(found(true), "1,1 r|");
    EXPECT_EQ(LineBreakCells::count(model, false), 3);
    model.toggleTranspose();
    EXPECT_EQ(found(true), "1,1 r|");
    EXPECT_EQ(found(false), "0,0 x|2,0 p|1,1 r|");
    load("1,2\n3,4\n5,6\n7,\"x\ny\"\n");
    model.toggleTranspose();
    EXPECT_EQ(found(true), "1,3 x|");
}

TEST_F(TableModelTest, HighlightFollowsConcealingAndPreviewsReplacements) {
    load("a,b\nc,d\ne,f\n");
    model.setTheme(Theme());
    model.setNumberOfHeaderRows(0);
    model.setSelection(Range(0, 0, Model));
    Range hit(2, 1, Raw);
    hit.setValue("new");
    model.setHighlightedRange(hit);
    auto const background = [&](int row, int col) {
        return model.data(model.index(row, col), Qt::BackgroundRole).value<QColor>();
    };
    auto const foreground = [&](int row, int col) {
        return model.data(model.index(row, col), Qt::ForegroundRole).value<QBrush>().color();
    };
    Theme const theme;
    EXPECT_EQ(background(2, 1), theme.getHighlightedCellColor());
    EXPECT_EQ(foreground(2, 1), theme.getHighlightedCellTextColor());
    EXPECT_EQ(foreground(1, 1), theme.getTextColor());
    model.concealRawRows({1});
    model.enforceTableSize();
    EXPECT_EQ(background(1, 1), theme.getHighlightedCellColor());
    EXPECT_EQ(text(1, 1), "f");
    model.setHighlightPreview(true);
    EXPECT_EQ(text(1, 1), "new");
    EXPECT_EQ(text(1, 0), "e");
    EXPECT_TRUE(model.cellInHighlightedRange(Range(1, 1, Model)));
    model.clearHighlightedRange();
    EXPECT_EQ(background(1, 1), theme.getCellColor());
    EXPECT_EQ(text(1, 1), "f");
}

TEST_F(TableModelTest, SelectionIsAnnouncedInOrder) {
    load("a,b\nc,d\n");
    QStringList order;
    QObject::connect(&model, &TableModel::removeContextSignal, [&](Context c) { order << QString("-%1").arg(int(c)); });
    QObject::connect(&model, &TableModel::addContextSignal, [&](Context c) { order << QString("+%1").arg(int(c)); });
    QObject::connect(&model, &TableModel::mainCellChangedSignal, [&](Range cell) { order << cell.value().toString(); });
    QObject::connect(&model, &TableModel::selectionChangedSignal, [&] { order << "ranges"; });
    QObject::connect(&model, &TableModel::selectionSizeChangedSignal, [&] { order << "size"; });
    model.setSelection(Range(1, 1, Raw));
    EXPECT_EQ(order.join(' '), "-32 d ranges size");
    order.clear();
    model.addCellToSelection(Range(0, 0, Model));
    EXPECT_EQ(order.join(' '), "+32 size");
    EXPECT_EQ(model.getSelectionIndexes(), (QModelIndexList{model.index(0, 0), model.index(1, 1)}));
    EXPECT_FALSE(model.data(model.index(0, 0), Qt::BackgroundRole).value<QColor>() == Theme().getCellColor());
    Range to;
    EXPECT_TRUE(model.getNextBlockLocation(Range(1, 1, Model), to, Direction::Up));
    EXPECT_EQ(to, Range(0, 1, Model));
}

} // namespace
