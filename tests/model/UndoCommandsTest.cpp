// Every undo command through apply, undo, redo and undo, on tables that stand as loaded, with concealed lines,
// transposed and both.

#include "model/CellShift.h"
#include "model/CellTexts.h"
#include "model/HiddenLines.h"
#include "model/undo/ApplyHiddenLinesCommand.h"
#include "model/undo/ChangeSelectionCommand.h"
#include "model/undo/DialectCommand.h"
#include "model/undo/DuplicateCellContentsCommand.h"
#include "model/undo/DuplicateLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveCellContentsCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/PasteCommand.h"
#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/ReplaceLineBreaksCommand.h"
#include "model/undo/SetEncodingCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/TransposeTableCommand.h"
#include "model/undo/WriteCellsCommand.h"
#include "tests/model/SelectionText.h"
#include "tests/model/TableModelFixture.h"

#include <QDir>
#include <QUndoStack>

#include <memory>
#include <random>
#include <set>

namespace {

using Command = TableUndoCommand;
using Make = Command* (*)(TableModel*, RangeVector const&);

struct Case {
    char const* text; ///< the class name
    char const*
        selection;        ///< see SelectionText; the main cell is the start of the first range, or next to it in a line
    char const* selected; ///< what is selected afterwards, of the table as loaded
    Make make;
    char const* expected; ///< of the table as loaded
};

constexpr char const* content = "a0,a1,a2,a3,\nb0,b1,b2,b3,\nc0,c1,,c3,\nd0,\xc3\xa9,,,\n,,,,\n";
constexpr char const* contentTransposed = "a0,b0,c0,d0,\na1,b1,c1,\xc3\xa9,\na2,b2,,,\na3,b3,c3,,\n,,,,\n";

Range filled(char const* text, char const* value) {
    Range range = rangesFrom(text).front();
    range.setValue(QString::fromUtf8(value));
    return range;
}

Range withLine(char const* text, std::vector<QVariant> values) {
    Range range = rangesFrom(text).front();
    range.setLineValues(std::move(values));
    return range;
}

Range excluding(Range range, int col) {
    range.setExcludedCols({col});
    return range;
}

/// The command on the selection.
template <class Made, auto... arguments>
Command* made(TableModel* m, RangeVector const& s) {
    return new Made(m, s, arguments..., true);
}

template <Axis axis, CellShift shift>
TableUndoCommand* shifted(TableModel* m, RangeVector const& s) {
    return new WriteCellsCommand(m, s, shiftedCells(*m, s, axis, shift), true);
}

constexpr Make insertInRow = shifted<Axis::Rows, CellShift::Insert>;
constexpr Make insertInColumn = shifted<Axis::Columns, CellShift::Insert>;
constexpr Make removeInRow = shifted<Axis::Rows, CellShift::Remove>;
constexpr Make removeInColumn = shifted<Axis::Columns, CellShift::Remove>;
constexpr Make clearRestOfRow = shifted<Axis::Rows, CellShift::ClearRest>;

Case const cases[] = {
    {"SetModelDataCommand", "C1,1", "C1,1*",
     [](auto* m, auto&) -> Command* {
         return new SetModelDataCommand(m, {filled("C1,1*", "X")}, {filled("C0,0", "E"), filled("C1,1", "-")}, true,
                                        true);
     },
     "E a1 a2 a3 -|b0 X b2 b3 -|c0 c1 - c3 -|d0 é - - -|- - - - -"},
    {"SetModelDataCommand", "C0,0", "C0,0*",
     [](auto* m, auto&) -> Command* { return new SetModelDataCommand(m, {filled("C6,6", "far")}, false); },
     "a0 a1 a2 a3 - - -|b0 b1 b2 b3 - - -|c0 c1 - c3 - - -|d0 é - - - - -|- - - - - - -|- - - - - - -|- - - - - - far"},
    {"SetModelDataCommand", "R1,0", "R1,0*",
     [](auto* m, auto& s) -> Command* {
         auto* command = new SetModelDataCommand(m, {excluding(filled("R1,0", "z"), 2)}, true);
         command->setSelectionCells(s);
         return command;
     },
     "a0 a1 a2 a3 - -|z z z z z z|c0 c1 - c3 - -|d0 é - - - -|- - - - - -"},
    {"SetModelDataCommand", "K1,1", "C0,0*",
     [](auto* m, auto& s) -> Command* {
         auto* command = new SetModelDataCommand(m, {withLine("K1,1", {"p", "q"})}, true);
         command->setSelectionCells({filled("C0,0*", "")}, s);
         return command;
     },
     "a0 a1 a2 a3 -|b0 p b2 b3 -|c0 q - c3 -|d0 - - - -|- - - - -"},
    {"SetModelDataCommand", "T0,0", "T0,0*",
     [](auto* m, auto&) -> Command* { return new SetModelDataCommand(m, {filled("T0,0", "t")}, false); },
     "t t t t t t|t t t t t t|t t t t t t|t t t t t t|t t t t t t|t t t t t t|t t t t t t"},
    {"SetModelDataCommand", "T3,3", "T3,3*",
     [](auto* m, auto&) -> Command* {
         Range table = filled("T3,3", "t");
         table.setTableValues({{"p", "q"}, {"r"}});
         return new SetModelDataCommand(m, {table}, false);
     },
     "a0 a1 a2 a3 - -|b0 b1 b2 b3 - -|c0 c1 - c3 - -|d0 é - p q t|- - - r t t|- - - t t t|- - - t t t"},
    {"PasteCommand", "C1,1 C2,2", "C2,1* C1,2",
     [](auto* m, auto& s) -> Command* {
         return new PasteCommand(m, {filled("C8,9", "P"), filled("C9,8", "Q")}, s, true);
     },
     "a0 a1 a2 a3 -|b0 b1 P b3 -|c0 Q - c3 -|d0 é - - -|- - - - -"},
    {"PasteCommand", "C2,3 C1,1", "C2,3*",
     [](auto* m, auto& s) -> Command* { return new PasteCommand(m, {filled("C0,0", "one")}, s, true); },
     "a0 a1 a2 a3 -|b0 b1 b2 b3 -|c0 c1 - one -|d0 é - - -|- - - - -"},
    {"MoveCellContentsCommand", "C1,1 C1,2", "C2,0* C2,1", made<MoveCellContentsCommand, 1, -1>,
     "a0 a1 a2 a3 -|b0 - - b3 -|b1 b2 - c3 -|d0 é - - -|- - - - -"},
    {"MoveCellContentsCommand", "R2,1", "R2,3*", made<MoveCellContentsCommand, 0, 2>,
     "a0 a1 a2 a3 - - -|b0 b1 b2 b3 - - -|c0 - - c1 - c3 -|d0 é - - - - -|- - - - - - -"},
    {"DuplicateCellContentsCommand", "C0,1 C1,1", "C1,1* C2,1", made<DuplicateCellContentsCommand, Direction::Down>,
     "a0 a1 a2 a3 -|b0 a1 b2 b3 -|c0 b1 - c3 -|d0 é - - -|- - - - -"},
    {"DuplicateCellContentsCommand", "K3,0", "K2,0*", made<DuplicateCellContentsCommand, Direction::Left>,
     "a0 a1 a3 a3 -|b0 b1 b3 b3 -|c0 c1 c3 c3 -|d0 é - - -|- - - - -"},
    {"ReplaceLineBreaksCommand", "C0,0", "C0,0*",
     [](auto* m, auto&) -> Command* {
         RangeVector cells{Range(2, 1, RangeIndexType::Raw), Range(1, 2, RangeIndexType::Raw)};
         std::erase_if(
             cells, [m](Range const& cell) { return cell.row >= m->rowCountRaw() || cell.col >= m->columnCountRaw(); });
         for (Range& cell : cells) {
             cell.setValue(QStringLiteral("one line"));
             cell.setOldValue(m->getTableData().getValueRaw(cell.row, cell.col));
         }
         return new ReplaceLineBreaksCommand(m, cells);
     },
     "a0 a1 a2 a3 -|b0 b1 one line b3 -|c0 one line - c3 -|d0 é - - -|- - - - -"},
    {"InsertRowsCommand", "R1,1 C3,0", "C5,0 R1,1*", made<InsertRowsCommand, 2, true>,
     "a0 a1 a2 a3 -|- - - - -|- - - - -|b0 b1 b2 b3 -|c0 c1 - c3 -|- - - - -|- - - - -|d0 é - - -|- - - - -"},
    {"InsertRowsCommand", "C4,0 C0,2", "C6,0* C1,2", made<InsertRowsCommand, 1, false>,
     "a0 a1 a2 a3 -|- - - - -|b0 b1 b2 b3 -|c0 c1 - c3 -|d0 é - - -|- - - - -|- - - - -"},
    {"InsertColsCommand", "C0,0 K2,1", "C0,0* K3,1", made<InsertColsCommand, 1, true>,
     "- a0 a1 - a2 a3 -|- b0 b1 - b2 b3 -|- c0 c1 - - c3 -|- d0 é - - - -|- - - - - - -"},
    {"RemoveRowsCommand", "C2,1 R0,0", "R0,0 C2,1*", made<RemoveRowsCommand, 1>, "b0 b1 b2 b3 -|d0 é - - -|- - - - -"},
    {"RemoveRowsCommand", "C1,1", "C0,1*",
     [](auto* m, auto& s) -> Command* {
         return new RemoveRowsCommand(m, s, std::vector<int>{3, 0, 1, 4, 99}, true);
     },
     "c0 c1 - c3 -"},
    {"RemoveRowsCommand", "T0,0", "T0,0*", made<RemoveRowsCommand, 1>, ""},
    {"RemoveRowsCommand", "R3,1 C4,0", "C2,0 R2,1*", made<RemoveRowsCommand, 1>,
     "a0 a1 a2 a3 -|b0 b1 b2 b3 -|c0 c1 - c3 -"},
    {"RemoveColsCommand", "K4,0 K2,1", "K2,0* K2,1", made<RemoveColsCommand, 1>,
     "a0 a1 a3|b0 b1 b3|c0 c1 c3|d0 é -|- - -"},
    {"RemoveColsCommand", "K3,0 C1,0", "K0,0*", made<RemoveColsCommand, 2>, "a2|b2|-|-|-"},
    {"MoveRowsRelativeCommand", "R0,1 C1,1", "R2,1* C3,1", made<MoveRowsRelativeCommand, 2>,
     "c0 c1 - c3 -|d0 é - - -|a0 a1 a2 a3 -|b0 b1 b2 b3 -|- - - - -"},
    {"MoveRowsRelativeCommand", "C3,1 C1,0", "C0,0 C2,1*", made<MoveRowsRelativeCommand, -7>,
     "b0 b1 b2 b3 -|a0 a1 a2 a3 -|d0 é - - -|c0 c1 - c3 -|- - - - -"},
    {"MoveColsRelativeCommand", "C0,1 C0,3", "C0,4* C0,6", made<MoveColsRelativeCommand, 3>,
     "a0 a2 - - a1 - a3|b0 b2 - - b1 - b3|c0 - - - c1 - c3|d0 - - - é - -|- - - - - - -"},
    {"MoveColsRelativeCommand", "K1,0 C0,2", "K2,0* C0,3", made<MoveColsRelativeCommand, 1>,
     "a0 a3 a1 a2 -|b0 b3 b1 b2 -|c0 c3 c1 - -|d0 - é - -|- - - - -"},
    {"MoveRowsAbsoluteCommand", "R0,0 C3,1", "R1,0* C2,1", made<MoveRowsAbsoluteCommand, 2>,
     "b0 b1 b2 b3 -|a0 a1 a2 a3 -|d0 é - - -|c0 c1 - c3 -|- - - - -"},
    {"MoveColsAbsoluteCommand", "K2,0 K3,0", "K0,0* K1,0", made<MoveColsAbsoluteCommand, 0>,
     "a2 a3 a0 a1 -|b2 b3 b0 b1 -|- c3 c0 c1 -|- - d0 é -|- - - - -"},
    {"DuplicateRowsCommand", "R0,1 R1,0 C3,2", "R3,0 R2,1* C6,2", made<DuplicateRowsCommand, 1>,
     "a0 a1 a2 a3 -|b0 b1 b2 b3 -|a0 a1 a2 a3 -|b0 b1 b2 b3 -|c0 c1 - c3 -|d0 é - - -|d0 é - - -|- - - - -"},
    {"DuplicateColsCommand", "K1,0 C2,0 C0,3", "C2,2 K3,0* C0,8", made<DuplicateColsCommand, 2>,
     "a0 a1 a0 a1 a0 a1 a2 a3 a3 a3 -|b0 b1 b0 b1 b0 b1 b2 b3 b3 b3 -|c0 c1 c0 c1 c0 c1 - c3 c3 c3 -|d0 é d0 é d0 é - "
     "- - - -|- - - - - - - - - - -"},
    {"RemoveEmptyRowsColsAtEndCommand", "C1,1", "C1,1*", made<RemoveEmptyRowsColsAtEndCommand>,
     "a0 a1 a2 a3|b0 b1 b2 b3|c0 c1 - c3|d0 é - -"},
    {"SetLineEndingCommand", "C1,1", "C1,1*", made<SetLineEndingCommand, LineEndingType::Windows>, nullptr},
    {"SetEncodingCommand", "C1,1", "C1,1*", made<SetEncodingCommand, EncodingType::Utf16LE>, nullptr},
    {"SetEncodingCommand", "C1,1", "C1,1*", // which has no é
     made<SetEncodingCommand, EncodingType::Iso8859_5>,
     "a0 a1 a2 a3 -|b0 b1 b2 b3 -|c0 c1 - c3 -|d0 ? - - -|- - - - -"},
    {"SetParsingStandardCommand", "C1,1", "C1,1*", made<SetParsingStandardCommand, ParsingStandard::AllQuotes>,
     nullptr},
    {"SetDelimiterCommand", "C1,1", "C1,1*",
     [](auto* m, auto& s) -> Command* { return new SetDelimiterCommand(m, s, QStringLiteral(";"), true); }, nullptr},
    {"TransposeTableCommand", "R2,1 C0,1", "C1,0 K2,0*", made<TransposeTableCommand>,
     "a0 b0 c0 d0 -|a1 b1 c1 é -|a2 b2 - - -|a3 b3 c3 - -|- - - - -"},
    {"ChangeSelectionCommand", "R1,1 C0,0", "C2,2*",
     [](auto* m, auto& s) -> Command* { return new ChangeSelectionCommand(m, s, rangesFrom("C2,2*")); }, nullptr},
    {"WriteCellsCommand", "K1,1 C0,0", "C0,0 K1,1*",
     [](auto* m, auto& s) -> Command* {
         return new WriteCellsCommand(m, s, changedTexts(*m, s, [](QString const& text) { return text.toUpper(); }),
                                      true);
     },
     "A0 a1 a2 a3 -|b0 B1 b2 b3 -|c0 C1 - c3 -|d0 É - - -|- - - - -"},
    {"WriteCellsCommand", "C0,0", "C0,0*",
     [](auto* m, auto& s) -> Command* {
         return new WriteCellsCommand(
             m, s, changedTexts(*m, rangesFrom("C5,6 C6,5"), [](QString const&) { return QStringLiteral("x"); }), true);
     },
     "a0 a1 a2 a3 - - -|b0 b1 b2 b3 - - -|c0 c1 - c3 - - -|d0 é - - - - -|- - - - - - -|- - - - - - x|- - - - - x -"},
    {"WriteCellsCommand", "C0,1 C0,2 C2,0", "C2,0 C0,1* C0,2", insertInRow,
     "a0 - - a1 a2 a3|b0 b1 b2 b3 - -|- c0 c1 - c3 -|d0 é - - - -|- - - - - -"},
    {"WriteCellsCommand", "C1,0", "C1,0*", insertInColumn,
     "a0 a1 a2 a3 -|- b1 b2 b3 -|b0 c1 - c3 -|c0 é - - -|d0 - - - -"},
    {"WriteCellsCommand", "C0,0 C0,2 R1,2", "C0,0* C0,2 R1,2", removeInRow,
     "a1 a3 - - -|b0 b1 - - -|c0 c1 - c3 -|d0 é - - -|- - - - -"},
    {"WriteCellsCommand", "C1,1", "C1,1*", removeInColumn,
     "a0 a1 a2 a3 -|b0 c1 b2 b3 -|c0 é - c3 -|d0 - - - -|- - - - -"},
    {"WriteCellsCommand", "C0,1", "C0,1*", clearRestOfRow,
     "a0 - - - -|b0 b1 b2 b3 -|c0 c1 - c3 -|d0 é - - -|- - - - -"},
    {"WriteCellsCommand", "C0,1 C0,2 C1,1 C1,2 C2,1 C2,2", "C0,1* C1,1 C0,2 C1,2 C0,3 C1,3",
     [](auto* m, auto& s) -> Command* {
         auto* command = new WriteCellsCommand(m, s, transposedCells(*m, s), true);
         command->setSelectionCells(transposedRanges(s), s);
         return command;
     },
     "a0 a1 b1 c1 -|b0 a2 b2 - -|c0 - - c3 -|d0 é - - -|- - - - -"},
    {"ApplyHiddenRowsCommand", "R1,0 C3,1", "C0,1*",
     [](auto* m, auto& s) -> Command* {
         return new ApplyHiddenRowsCommand(m, s, HiddenLines(*m, Axis::Rows).withSelected(), true);
     },
     "a0 a1 a2 a3 -|c0 c1 - c3 -|- - - - -"},
    {"ApplyHiddenColsCommand", "C1,1", "C1,0*",
     [](auto* m, auto& s) -> Command* {
         return new ApplyHiddenColsCommand(m, s, HiddenLines(*m, Axis::Columns).withSelected(), true);
     },
     "a0 a2 a3 -|b0 b2 b3 -|c0 - c3 -|d0 - - -|- - - -"},
    {"ApplyHiddenRowsCommand", "K1,0", "K1,0*",
     [](auto* m, auto& s) -> Command* { return new ApplyHiddenRowsCommand(m, s, std::vector<int>{0}, true); },
     "b0 b1 b2 b3 -|c0 c1 - c3 -|d0 é - - -|- - - - -"},
    {"ApplyHiddenColsCommand", "R1,0", "R1,0*",
     [](auto* m, auto& s) -> Command* {
         return new ApplyHiddenColsCommand(m, s, std::vector<int>{0, 2}, true);
     },
     "a1 a3 -|b1 b3 -|c1 c3 -|é - -|- - -"},
};

enum Standing { AsLoaded, Concealed, Transposed, ConcealedAndTransposed };

class UndoCommands : public TableModelFixture {
protected:
    /// A transposed table comes from such a file that it shows what the others show.
    void prepare(int standing) {
        bool const transposed = standing == Transposed || standing == ConcealedAndTransposed;
        load(transposed ? contentTransposed : content);
        model.setNumBufferRows(2);
        model.setNumBufferCols(1);
        if (transposed)
            model.toggleTranspose();
        if (standing == Concealed || standing == ConcealedAndTransposed) {
            model.concealRawRows({1});
            model.concealRawCols({2, 3});
        }
        model.enforceTableSize();
        model.setRowSortData({SortType::Ascending, Axis::Rows, 1});
        model.setColSortData({SortType::Descending, Axis::Columns, 0});
    }

    /// Selects what a case asks for and makes its command.
    TableUndoCommand* make(Case const& test) {
        RangeVector const ranges = rangesFrom(test.selection);
        Range const& first = ranges.front();
        bool const nextToStart = first.type == RangeType::Row;
        model.setSelection(modelCell(first.row, first.col + nextToStart), ranges);
        return test.make(&model, model.getSelection());
    }

    /// All that undo has to bring back.
    std::string state() {
        EXPECT_TRUE(model.saveCSV(false, false));
        std::string text = read(model.getFilepath()).toHex(' ').toStdString() + stateOfTable();
        RangeVector selection = model.getSelection();
        selection.sanitize();
        text += "\nselection " + textOf(selection);
        add(text, "\nmain cell", model.getMainCell().row, model.getMainCell().col);
        add(text, "\ngrid", model.rowCount(), model.columnCount());
        return text;
    }

    /// The same without the file, whose last lines tell whether empty rows at the end have ever been edited, and
    /// without what the user selects between two commands.
    std::string stateOfTable() const {
        std::string text = "\n" + table();
        add(text, "\nraw", model.rowCountRaw(), model.columnCountRaw());
        add(text, "\nmodel", model.rowCountModel(), model.columnCountModel());
        add(text, "\nrows sorted by", model.getRowSortData().sortType, model.getRowSortData().axis,
            model.getRowSortData().index);
        add(text, "\ncolumns sorted by", model.getColSortData().sortType, model.getColSortData().axis,
            model.getColSortData().index);
        for (int const raw : model.getTableData().getConcealedRowsRaw())
            add(text, "\nconcealed row", raw);
        for (int const raw : model.getTableData().getConcealedColsRaw())
            add(text, "\nconcealed column", raw);
        TableModel::DialectOrigin const& origin = model.dialectOrigin();
        add(text, "\ndialect " + model.getSaveDelimiter().toStdString(), model.getLineEnding(), model.getEncoding(),
            model.getParsingStandard(), origin.delimiterSetByCommand, origin.lineEndingSetByCommand,
            origin.encodingSetByCommand, origin.parsingStandardSetByCommand);
        return text;
    }

    template <class... Numbers>
    static void add(std::string& text, std::string const& name, Numbers... numbers) {
        text += name;
        ((text += " " + std::to_string(static_cast<int>(numbers))), ...);
    }

    std::string table() const { return shown(model.rowCountModel(), model.columnCountModel()); }

    QUndoStack stack;
};

class EveryUndoCommand : public UndoCommands, public testing::WithParamInterface<std::tuple<std::size_t, int>> {};

TEST_P(EveryUndoCommand, UndoBringsBackWhatWasAndRedoWhatBecame) {
    auto const [index, standing] = GetParam();
    Case const& test = cases[index];
    prepare(standing);
    std::unique_ptr<TableUndoCommand> const command(make(test));
    std::string const before = state();
    std::string const tableBefore = table();
    EXPECT_EQ(command->text(), QLatin1String(test.text));

    command->redo();
    if (standing == AsLoaded || standing == Transposed) {
        EXPECT_EQ(textOf(model.getSelection()), test.selected);
        EXPECT_EQ(table(), test.expected ? test.expected : tableBefore);
    }
    std::string const after = state();
    EXPECT_NE(after, before);
    command->undo();
    EXPECT_EQ(state(), before);
    command->redo();
    EXPECT_EQ(state(), after);
    command->undo();
    EXPECT_EQ(state(), before);
}

/// The texts in sight, rows of cells.
using Texts = std::vector<std::vector<QString>>;

TEST_P(EveryUndoCommand, TellsWhoShowsTheTableAllThatHasChangedAndSavesItAtOnce) {
    auto const [index, standing] = GetParam();
    prepare(standing);
    std::unique_ptr<TableUndoCommand> const command(make(cases[index]));
    std::string const name = cases[index].text;
    std::set<int> fitted[2]; // rows, columns
    auto const note = [&](int axis) {
        return [&lines = fitted[axis]](std::vector<int> const& told) { lines.insert(told.begin(), told.end()); };
    };
    QObject::connect(&model, &TableModel::enforceAutoFitRowHeightsSignal, &model, note(0));
    QObject::connect(&model, &TableModel::enforceAutoFitColWidthsSignal, &model, note(1));
    auto const texts = [this] {
        Texts all(std::size_t(model.rowCountModel()));
        for (int row = 0; row < model.rowCountModel(); ++row) {
            for (int col = 0; col < model.columnCountModel(); ++col)
                all[row].push_back(text(row, col, Qt::EditRole));
        }
        return all;
    };
    // What cells are shifted away from their places is fitted with the next edit there.
    bool const fitsCells =
        name == "SetModelDataCommand" || name == "PasteCommand" || name.find("CellContents") != std::string::npos;
    bool const selects = name == "ChangeSelectionCommand";
    bool const ofRows = name.find("Rows") != std::string::npos;
    bool const changesLines = (name.starts_with("Insert") || name.starts_with("Remove") ||
                               name.starts_with("DuplicateRows") || name.starts_with("DuplicateCols")) &&
                              name.find("AtEnd") == std::string::npos && name.find("Hidden") == std::string::npos;
    model.saveCSV(false, false);
    model.setSaveAfterEachEdit(true);
    for (auto const step : {&QUndoCommand::redo, &QUndoCommand::undo, &QUndoCommand::redo}) {
        Texts const before = texts();
        fitted[0].clear();
        fitted[1].clear();
        Texts shownAtLast;
        bool whole = false;
        auto const look = QObject::connect(
            &model, &TableModel::dataChanged, &model, [&](QModelIndex const& first, QModelIndex const& last) {
                shownAtLast = texts();
                whole =
                    first == model.index(0, 0) && last == model.index(model.rowCount() - 1, model.columnCount() - 1);
            });
        QSignalSpy const found(&model, &TableModel::updateFindReplaceMatchesSignal);
        (command.get()->*step)();
        QObject::disconnect(look);
        Texts const after = texts();
        EXPECT_TRUE(selects || shownAtLast == after) << "a view that looks when it is told sees all of it";
        EXPECT_TRUE(selects || whole || model.rowCount() == 0 || model.columnCount() == 0);
        EXPECT_TRUE(found.count() > 0 || name.starts_with("Set") || selects);
        if (fitsCells) {
            for (std::size_t row = 0; row < std::min(before.size(), after.size()); ++row) {
                for (std::size_t col = 0; col < std::min(before[row].size(), after[row].size()); ++col)
                    EXPECT_TRUE(before[row][col] == after[row][col] ||
                                (fitted[0].count(int(row)) > 0 && fitted[1].count(int(col)) > 0))
                        << row << ',' << col;
            }
        } else if (changesLines) {
            EXPECT_EQ(fitted[ofRows ? 0 : 1].size(),
                      std::size_t(ofRows ? model.rowCountModel() : model.columnCountModel()));
        }
        QByteArray const savedAtOnce = read(model.getFilepath());
        EXPECT_TRUE(model.saveCSV(false, false));
        EXPECT_EQ(savedAtOnce, read(model.getFilepath()));
    }
}

std::string nameOf(testing::TestParamInfo<std::tuple<std::size_t, int>> const& info) {
    static char const* const standings[] = {"AsLoaded", "Concealed", "Transposed", "Both"};
    std::size_t const index = std::get<0>(info.param);
    return cases[index].text + std::to_string(index) + standings[std::get<1>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(Undo, EveryUndoCommand,
                         testing::Combine(testing::Range(std::size_t(0), std::size(cases)), testing::Range(0, 4)),
                         nameOf);

TEST_F(UndoCommands, AnySequenceCanBeUndoneAndRedoneStepByStep) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::mt19937 random(seed);
        prepare(static_cast<int>(seed % 4));
        // What the user selects between two commands is not theirs to bring back.
        std::vector<std::string> states{stateOfTable()};
        std::vector<std::string> names;
        for (int step = 0; step < 6; ++step) {
            Case const& test = cases[random() % std::size(cases)];
            std::unique_ptr<TableUndoCommand> command(make(test));
            if (command->isObsolete())
                continue;
            stack.push(command.release());
            states.push_back(stateOfTable());
            names.emplace_back(test.text);
        }
        std::string const trace = "seed " + std::to_string(seed) + ' ' + testing::PrintToString(names);
        for (std::size_t step = names.size(); step-- > 0;) {
            stack.undo();
            ASSERT_EQ(stateOfTable(), states[step]) << "undo of step " << step << ", " << trace;
        }
        for (std::size_t step = 1; step < states.size(); ++step) {
            stack.redo();
            ASSERT_EQ(stateOfTable(), states[step]) << "redo of step " << step << ", " << trace;
        }
        stack.clear();
    }
}

TEST_F(UndoCommands, ManyPlacesAreInsertedAndRemovedInOnePass) {
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        QByteArray lines;
        for (int line = 0; line < 300; ++line)
            lines += axis == Axis::Rows ? "x" + QByteArray::number(line) + ",y\n" : QByteArray::number(line) + ",";
        load(lines);
        bool const rows = axis == Axis::Rows;
        rows ? model.concealRawRows({7, 8, 250}) : model.concealRawCols({7, 8, 250});
        model.enforceTableSize();
        model.setSelection(modelCell(3, 0));
        std::string const before = state();
        int const sizeBefore = rows ? model.rowCountRaw() : model.columnCountRaw();
        RangeVector everyOther;
        for (int line = 0; line < 290; line += 2)
            everyOther.emplace_back(rows ? line : 0, rows ? 0 : line, RangeIndexType::Model);
        std::vector<TableUndoCommand*> const commands =
            rows ? std::vector<TableUndoCommand*>{new InsertRowsCommand(&model, everyOther, 2, true, false),
                                                  new RemoveRowsCommand(&model, everyOther, 1, false)}
                 : std::vector<TableUndoCommand*>{new InsertColsCommand(&model, everyOther, 2, true, false),
                                                  new RemoveColsCommand(&model, everyOther, 1, false)};
        for (TableUndoCommand* const command : commands) {
            int const change = command == commands.front() ? 290 : -145;
            stack.push(command);
            EXPECT_EQ((rows ? model.rowCountRaw() : model.columnCountRaw()) - sizeBefore, change);
            EXPECT_EQ(text(rows ? 3 : 0, rows ? 0 : 3).isEmpty(), false);
            stack.undo();
            EXPECT_EQ(state(), before);
        }
    }
}

TEST_F(UndoCommands, TheSortArrowLeavesWithAnEditAndComesBackWithItsUndo) {
    prepare(AsLoaded);
    QSignalSpy const headers(&model, &TableModel::refreshHeadersSignal);
    QString const arrow = model.headerData(1, Qt::Horizontal).toString();
    EXPECT_EQ(arrow, QStringLiteral("1 ") + QChar(0x2191));
    stack.push(make(cases[0]));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "1");
    stack.undo();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), arrow);
    EXPECT_EQ(headers.count(), 4);
}

TEST_F(UndoCommands, NoTextLeavesTheTableAtItsTopOrLeft) {
    load("a,b\nc,d\n");
    auto const moves = [this](char const* cells, int rows, int cols) {
        return !MoveCellContentsCommand(&model, rangesFrom(cells), rows, cols, true).isObsolete();
    };
    EXPECT_FALSE(moves("C0,0*", 0, -1));
    EXPECT_FALSE(moves("C0,0*", -1, 0));
    EXPECT_FALSE(moves("C0,1 C1,0*", 1, -1));
    EXPECT_FALSE(moves("R1,0*", 0, -1));
    EXPECT_TRUE(moves("C0,1 C1,1*", 1, -1));
    EXPECT_TRUE(moves("K1,0*", 0, -1));
}

TEST_F(UndoCommands, WhatIsTakenOutOfALineStaysOutWhileLinesBesideItAreHidden) {
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        bool const rows = axis == Axis::Rows;
        load("a,b,c\nd,e,f\ng,h,i\n");
        Range line(1, rows ? RangeType::Row : RangeType::Column, RangeIndexType::Model);
        rows ? line.setExcludedCols({2}) : line.setExcludedRows({2});
        model.setSelection(modelCell(1, 1), RangeVector{line});
        if (rows)
            stack.push(new ApplyHiddenColsCommand(&model, model.getSelectedSet(), std::vector<int>{0}, true));
        else
            stack.push(new ApplyHiddenRowsCommand(&model, model.getSelectedSet(), std::vector<int>{0}, true));
        auto const left = cellsOf(model.getSelection(), {3, 3});
        EXPECT_EQ(left, (std::set<std::pair<int, int>>{{rows ? 1 : 0, rows ? 0 : 1}, {rows ? 1 : 2, rows ? 2 : 1}}));
        stack.undo();
        EXPECT_EQ(cellsOf(model.getSelection(), {3, 3}), cellsOf(RangeVector{line}, {3, 3}));
    }
}

TEST_F(UndoCommands, ASelectionBehindTheDataComesBackIntoTheGrid) {
    load("a,b\nc,d\n");
    model.setSelection(modelCell(1, 60), rangesFrom("C1,60*"));
    model.enforceTableSize();
    stack.push(new ApplyHiddenRowsCommand(&model, model.getSelectedSet(), std::vector<int>{0}, true));
    model.setSelection(modelCell(0, 0), rangesFrom("C0,0*"));
    model.enforceTableSize();
    ASSERT_LE(model.columnCount(), 60);
    stack.undo();
    EXPECT_EQ(textOf(model.getSelection()), "C1,60*");
    EXPECT_GT(model.columnCount(), 60);
}

TEST_F(UndoCommands, RedoLeavesTheSelectionThatACommandWithoutOneLeft) {
    load("a,b\nc,d\n");
    model.setSelection(modelCell(0, 1), rangesFrom("C0,1*"));
    stack.push(new DuplicateCellContentsCommand(&model, model.getSelectedSet(), Direction::Up, true));
    EXPECT_EQ(textOf(model.getSelection()), "C0,1*");
    stack.undo();
    model.setSelection(modelCell(1, 0), rangesFrom("C1,0*"));
    stack.redo();
    EXPECT_EQ(textOf(model.getSelection()), "C0,1*");
}

TEST_F(UndoCommands, MovedCellsKeepLongTextsWhole) {
    QByteArray const text(5000, 'x');
    load("a," + text + "\n");
    stack.push(new MoveCellContentsCommand(&model, rangesFrom("C0,1*"), 0, -1, true));
    EXPECT_EQ(this->text(0, 0, Qt::EditRole), QString::fromLatin1(text));
}

TEST_F(UndoCommands, AnEditCostsOneRefreshHoweverManyCells) {
    prepare(AsLoaded);
    QSignalSpy const changes(&model, &TableModel::dataChanged);
    RangeVector cells;
    for (int i = 0; i < 16; ++i)
        cells.push_back(filled(("C" + std::to_string(i / 4) + "," + std::to_string(i % 4)).c_str(), "same"));
    stack.push(new SetModelDataCommand(&model, cells, true));
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), model.index(0, 0));
    EXPECT_EQ(changes[0][1].toModelIndex(), model.index(model.rowCount() - 1, model.columnCount() - 1));
}

TEST_F(UndoCommands, ACommandStaysUndoableWhenItsAutomaticSaveFails) {
    prepare(AsLoaded);
    TableUndoCommand* const command = make(cases[0]);
    std::string const before = state();
    QString const path = model.getFilepath();
    model.setSaveAfterEachEdit(true);
    QSignalSpy const failures(&model, &TableModel::autoSaveFailedSignal);
    QSignalSpy const clean(&model, &TableModel::undoStackCleanChangedSignal);

    QDir().rename(directory.path(), directory.path() + ".away");
    stack.push(command);
    ASSERT_EQ(failures.count(), 1);
    EXPECT_EQ(failures.front().at(0), path);
    EXPECT_NE(failures.front().at(1), QString());
    EXPECT_EQ(clean.count(), 0);
    EXPECT_TRUE(stack.canUndo());
    QDir().rename(directory.path() + ".away", directory.path());

    stack.undo();
    EXPECT_EQ(clean.count(), 1);
    EXPECT_EQ(read(path), content);
    stack.redo();
    EXPECT_TRUE(read(path).startsWith("E,a1,"));
    stack.undo();
    EXPECT_EQ(state(), before);
}

TEST_F(UndoCommands, DialectCommandsTellTheViewAndMarkTheirPart) {
    prepare(AsLoaded);
    QSignalSpy const delimiters(&model, &TableModel::setDelimiterSignal);
    stack.push(new SetDelimiterCommand(&model, model.getSelection(), QStringLiteral("|"), true));
    EXPECT_TRUE(model.dialectOrigin().delimiterSetByCommand);
    EXPECT_EQ(model.getDelimiter(), ",");
    stack.undo();
    EXPECT_FALSE(model.dialectOrigin().delimiterSetByCommand);
    ASSERT_EQ(delimiters.count(), 2);
    EXPECT_EQ(delimiters.at(0).at(0), "|");
    EXPECT_EQ(delimiters.at(1).at(0), ",");
}

} // namespace
