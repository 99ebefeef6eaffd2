// Everything that changes lines, in any order, against a table that is nothing but a list of lines with marks: what the
// grid shows, which lines count as empty, and what a save leaves in the file.

#include "model/undo/ApplyHiddenLinesCommand.h"
#include "model/undo/DuplicateLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/RemoveAllFilteredOutAndHiddenDataCommand.h"
#include "model/undo/RemoveEmptyRowsColsAtEndCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/SortCommand.h"
#include "model/undo/TransposeTableCommand.h"
#include "tests/model/TableModelFixture.h"

#include <QUndoStack>

#include <algorithm>
#include <random>

namespace {

using Indexes = std::vector<int>;

/// The table as the user sees it. A line is a row or column.
struct SlowTable {
    std::vector<std::vector<QString>> cells{0}; ///< by rows, all of the same length
    std::array<std::vector<bool>, 2> hidden;    ///< by axis

    std::vector<bool>& marks(Axis axis) { return hidden[std::size_t(axis)]; }
    int count(Axis axis) const { return int(hidden[std::size_t(axis)].size()); }
    Indexes shown(Axis axis) const {
        Indexes raws;
        for (int raw = 0; raw < count(axis); ++raw) {
            if (!hidden[std::size_t(axis)][std::size_t(raw)])
                raws.push_back(raw);
        }
        return raws;
    }
    int raw(Axis axis, int model) const {
        Indexes const raws = shown(axis);
        int const behind = model - int(raws.size());
        return behind < 0 ? raws[std::size_t(model)] : count(axis) + behind;
    }
    QString const& at(int row, int col) const { return cells[std::size_t(row)][std::size_t(col)]; }
    /// Lines in another order; -1 for a new empty one.
    void take(Axis axis, Indexes const& order) {
        SlowTable const before = *this;
        bool const rows = axis == Axis::Rows;
        marks(axis).clear();
        for (int const line : order)
            marks(axis).push_back(line >= 0 && before.hidden[std::size_t(axis)][std::size_t(line)]);
        cells.assign(std::size_t(count(Axis::Rows)), std::vector<QString>(std::size_t(count(Axis::Columns))));
        for (int row = 0; row < count(Axis::Rows); ++row) {
            for (int col = 0; col < count(Axis::Columns); ++col) {
                int const line = order[std::size_t(rows ? row : col)];
                if (line >= 0)
                    cells[std::size_t(row)][std::size_t(col)] = rows ? before.at(line, col) : before.at(row, line);
            }
        }
    }
    Indexes lines(Axis axis) const {
        Indexes all(std::size_t(count(axis)));
        for (int line = 0; line < count(axis); ++line)
            all[std::size_t(line)] = line;
        return all;
    }
    void insert(Axis axis, int raw, int lineCount) {
        Indexes order = lines(axis);
        order.insert(order.begin() + raw, std::size_t(lineCount), -1);
        take(axis, order);
    }
    void grow(Axis axis, int to) {
        if (to > count(axis))
            insert(axis, count(axis), to - count(axis));
    }
    void remove(Axis axis, Indexes const& raws) {
        Indexes order = lines(axis);
        std::erase_if(order, [&](int line) { return std::count(raws.begin(), raws.end(), line) > 0; });
        take(axis, order);
    }
    Indexes empty(Axis axis) const {
        Indexes found;
        for (int const line : lines(axis)) {
            bool filled = false;
            for (int const other : lines(axis == Axis::Rows ? Axis::Columns : Axis::Rows))
                filled = filled || !(axis == Axis::Rows ? at(line, other) : at(other, line)).isEmpty();
            if (!filled)
                found.push_back(line);
        }
        return found;
    }
    Indexes emptyAtEnd(Axis axis) const {
        Indexes found = empty(axis);
        int expected = count(axis) - 1;
        auto first = found.end();
        while (first != found.begin() && *(first - 1) == expected--)
            --first;
        found.erase(found.begin(), first);
        return found;
    }
    std::string text(Indexes const& rows, Indexes const& cols) const {
        std::string text;
        for (int const row : rows) {
            for (std::size_t col = 0; col < cols.size(); ++col)
                text += (col > 0 ? "," : "") + at(row, cols[col]).toStdString();
            text += '\n';
        }
        return text;
    }
};

class RowCountRandomTest : public TableModelFixture, public testing::WithParamInterface<unsigned> {
public:
    int random(int below) { return int(generator() % unsigned(below)); }
    Axis randomAxis() { return random(3) == 0 ? Axis::Columns : Axis::Rows; }
    int shownCount(Axis axis) { return int(now.shown(axis).size()); }
    static Range cell(Axis axis, int line, int other = 0) {
        return axis == Axis::Rows ? modelCell(line, other) : modelCell(other, line);
    }
    static Range modelCell(int row, int col) { return {row, col, RangeIndexType::Model}; }
    /// One or two of the shown lines.
    std::pair<Indexes, RangeVector> someLines(Axis axis) {
        Indexes at{random(shownCount(axis)), random(shownCount(axis))};
        std::sort(at.begin(), at.end());
        at.erase(std::unique(at.begin(), at.end()), at.end());
        RangeVector cells;
        for (int const line : at)
            cells.push_back(cell(axis, line));
        return {at, cells};
    }
    void forgetCommands() {
        stack.clear();
        done.clear();
        undone.clear();
    }
    void push(QUndoCommand* command, SlowTable const& next) {
        undone.clear();
        done.push_back(now);
        now = next;
        stack.push(command);
    }

    void edit() {
        int const row = random(shownCount(Axis::Rows) + 2);
        int const col = random(shownCount(Axis::Columns) + 1);
        QString const text = random(3) == 0 ? QString() : QString(QChar(u'a' + random(6)));
        SlowTable next = now;
        int const rawRow = now.raw(Axis::Rows, row);
        int const rawCol = now.raw(Axis::Columns, col);
        if (!text.isEmpty()) {
            next.grow(Axis::Rows, rawRow + 1);
            next.grow(Axis::Columns, rawCol + 1);
        }
        if (rawRow < next.count(Axis::Rows) && rawCol < next.count(Axis::Columns))
            next.cells[std::size_t(rawRow)][std::size_t(rawCol)] = text;
        Range range = modelCell(row, col);
        range.setValue(text);
        if (random(2) == 0)
            push(new SetModelDataCommand(&model, RangeVector{range}, true), next);
        else
            push(new SetModelDataCommand(&model, RangeSet(RangeVector{range}), text, true), next);
    }
    void insert() {
        Axis const axis = randomAxis();
        // Mostly at the end, where nothing is stored yet.
        int const line = random(2) == 0 ? shownCount(axis) - 1 : random(shownCount(axis));
        bool const before = random(3) == 0;
        int const lineCount = 1 + random(2);
        SlowTable next = now;
        next.insert(axis, now.raw(axis, line + !before), lineCount);
        push(new InsertLinesCommand(axis, &model, RangeVector{cell(axis, line)}, lineCount, before, true), next);
    }
    /// Near the end, without a command, as a conversion does it. Rows at the end are not stored then.
    void insertByModel() {
        Axis const axis = randomAxis();
        forgetCommands();
        int const line = std::max(shownCount(axis) - random(4), 0);
        now.insert(axis, now.raw(axis, line), 3);
        axis == Axis::Rows ? model.insertRows(line, 3) : model.insertColumns(line, 3);
        model.enforceTableSize();
    }
    void hide() {
        Axis const axis = randomAxis();
        SlowTable next = now;
        Indexes raws;
        for (int raw = 0; raw < now.count(axis); ++raw) {
            bool const hides = random(4) == 0;
            next.marks(axis)[std::size_t(raw)] = hides;
            if (hides)
                raws.push_back(raw);
        }
        if (next.shown(axis).size() > 1)
            push(new ApplyHiddenLinesCommand(axis, &model, model.getSelectedSet(), raws, true), next);
    }
    void move() {
        Axis const axis = randomAxis();
        int const from = random(shownCount(axis));
        int const to = random(shownCount(axis) + 2);
        if (to == from)
            return;
        SlowTable next = now;
        next.grow(axis, now.raw(axis, to) + 1);
        Indexes shown = next.shown(axis);
        Indexes order = next.lines(axis);
        Indexes const places = shown;
        int const moved = shown[std::size_t(from)];
        shown.erase(shown.begin() + from);
        shown.insert(shown.begin() + to, moved);
        for (std::size_t line = 0; line < places.size(); ++line)
            order[std::size_t(places[line])] = shown[line];
        next.take(axis, order);
        push(new MoveLinesRelativeCommand(axis, &model, RangeVector{cell(axis, from)}, to - from, true), next);
    }
    void sort() {
        Axis const axis = randomAxis();
        SortData const data{random(2) == 0 ? SortType::Ascending : SortType::Descending, axis, 0};
        auto* const command = new SortCommand(&model, data);
        SlowTable next = now;
        next.take(axis, model.getSortIndexes(data));
        push(command, next);
    }
    void duplicate() {
        Axis const axis = randomAxis();
        int const line = random(shownCount(axis));
        SlowTable next = now;
        Indexes order = now.lines(axis);
        order.insert(order.begin() + now.raw(axis, line + 1), now.raw(axis, line));
        next.take(axis, order);
        push(new DuplicateLinesCommand(axis, &model, RangeVector{cell(axis, line)}, 1, true), next);
    }
    void remove() {
        Axis const axis = randomAxis();
        auto const [at, cells] = someLines(axis);
        if (shownCount(axis) < int(at.size()) + 2)
            return;
        Indexes raws;
        for (int const line : at)
            raws.push_back(now.raw(axis, line));
        SlowTable next = now;
        next.remove(axis, raws);
        push(new RemoveLinesCommand(axis, &model, cells, 1, true), next);
    }
    void removeEmpty() {
        Indexes const raws = now.empty(Axis::Rows);
        SlowTable next = now;
        next.remove(Axis::Rows, raws);
        if (next.shown(Axis::Rows).size() > 1)
            push(new RemoveLinesCommand(Axis::Rows, &model, model.getSelectedSet(), model.getEmptyRowsRaw(false), true),
                 next);
    }
    void removeEmptyAtEnd() {
        SlowTable next = now;
        for (Axis const axis : {Axis::Rows, Axis::Columns})
            next.remove(axis, now.emptyAtEnd(axis));
        if (next.shown(Axis::Rows).size() > 1 && next.shown(Axis::Columns).size() > 1)
            push(new RemoveEmptyRowsColsAtEndCommand(&model, model.getSelectedSet(), true), next);
    }
    void removeHidden() {
        SlowTable next = now;
        for (Axis const axis : {Axis::Rows, Axis::Columns})
            next.take(axis, now.shown(axis));
        push(new RemoveAllFilteredOutAndHiddenDataCommand(&model, model.getSelectedSet(), true), next);
    }
    void transpose() {
        SlowTable next;
        next.hidden = {now.hidden[1], now.hidden[0]};
        next.take(Axis::Rows, Indexes(next.hidden[0].size(), -1));
        next.hidden = {now.hidden[1], now.hidden[0]};
        for (int row = 0; row < next.count(Axis::Rows); ++row) {
            for (int col = 0; col < next.count(Axis::Columns); ++col)
                next.cells[std::size_t(row)][std::size_t(col)] = now.at(col, row);
        }
        push(new TransposeTableCommand(&model, model.getSelectedSet(), true), next);
    }
    void undo() { step(done, undone, &QUndoStack::undo); }
    void redo() { step(undone, done, &QUndoStack::redo); }
    void step(std::vector<SlowTable>& from, std::vector<SlowTable>& to, void (QUndoStack::*carryOut)()) {
        if (from.empty())
            return;
        to.push_back(now);
        now = from.back();
        from.pop_back();
        (stack.*carryOut)();
    }
    /// Only rows that have never been written to make no lines in a file.
    void reload() {
        ASSERT_TRUE(model.saveCSV(false, false));
        QByteArray const content = read(model.getFilepath());
        forgetCommands();
        for (Axis const axis : {Axis::Rows, Axis::Columns})
            now.marks(axis).assign(now.marks(axis).size(), false);
        load(content);
        for (Axis const axis : {Axis::Rows, Axis::Columns}) {
            int const count = axis == Axis::Rows ? model.rowCountRaw() : model.columnCountRaw();
            ASSERT_LE(count, now.count(axis));
            ASSERT_GE(count, now.count(axis) - int(now.emptyAtEnd(axis).size()));
            Indexes order = now.lines(axis);
            order.resize(std::size_t(count));
            now.take(axis, order);
            if (count < 2)
                insert();
        }
    }

    void expectGrid() {
        Indexes const rows = now.shown(Axis::Rows);
        Indexes const cols = now.shown(Axis::Columns);
        ASSERT_EQ(model.rowCountRaw(), now.count(Axis::Rows));
        ASSERT_EQ(model.columnCountRaw(), now.count(Axis::Columns));
        ASSERT_EQ(model.rowCountModel(), int(rows.size()));
        ASSERT_EQ(model.columnCountModel(), int(cols.size()));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t col = 0; col < cols.size(); ++col) {
                ASSERT_EQ(text(int(row), int(col)), now.at(rows[row], cols[col])) << row << ' ' << col;
            }
        }
        ASSERT_EQ(model.getEmptyRowsRaw(false), now.empty(Axis::Rows));
        ASSERT_EQ(model.getEmptyColumnsRaw(false), now.empty(Axis::Columns));
        ASSERT_EQ(model.numEmptyRowsRawAtEnd(), int(now.emptyAtEnd(Axis::Rows).size()));
        ASSERT_EQ(model.numEmptyColumnsRawAtEnd(), int(now.emptyAtEnd(Axis::Columns).size()));
    }
    /// All of the table, and what is not hidden. Lines at the end that are empty may be missing.
    void expectFile() {
        for (bool const skipHidden : {false, true}) {
            if (skipHidden && model.getTableData().isTransposed())
                continue; // leaves out lines only
            Indexes const rows = skipHidden ? now.shown(Axis::Rows) : now.lines(Axis::Rows);
            Indexes const cols = skipHidden ? now.shown(Axis::Columns) : now.lines(Axis::Columns);
            ASSERT_TRUE(model.saveCSV(false, skipHidden));
            std::string const file = read(model.getFilepath()).toStdString();
            std::string const whole = now.text(rows, cols);
            ASSERT_EQ(file, whole.substr(0, file.size()));
            ASSERT_EQ(whole.find_first_not_of(",\n", file.size()), std::string::npos) << whole;
        }
    }

    std::mt19937 generator;
    SlowTable now;
    std::vector<SlowTable> done;
    std::vector<SlowTable> undone;
    QUndoStack stack;
};

} // namespace

TEST_P(RowCountRandomTest, GridAndFileHoldEveryLineWhateverIsDoneToThem) {
    using Step = void (RowCountRandomTest::*)();
    using T = RowCountRandomTest;
    std::pair<char const*, Step> const steps[] = {{"edit", &T::edit},
                                                  {"edit", &T::edit},
                                                  {"edit", &T::edit},
                                                  {"insert", &T::insert},
                                                  {"insert", &T::insert},
                                                  {"insert by the model", &T::insertByModel},
                                                  {"insert by the model", &T::insertByModel},
                                                  {"hide", &T::hide},
                                                  {"move", &T::move},
                                                  {"move", &T::move},
                                                  {"sort", &T::sort},
                                                  {"duplicate", &T::duplicate},
                                                  {"remove", &T::remove},
                                                  {"remove", &T::remove},
                                                  {"remove empty rows", &T::removeEmpty},
                                                  {"remove empty lines at the end", &T::removeEmptyAtEnd},
                                                  {"remove hidden lines", &T::removeHidden},
                                                  {"transpose", &T::transpose},
                                                  {"undo", &T::undo},
                                                  {"undo", &T::undo},
                                                  {"redo", &T::redo},
                                                  {"reload", &T::reload}};
    generator.seed(GetParam());
    // Checks of every item after every signal would take most of the time; other tests have them.
    QObject::disconnect(&model, nullptr, &tester, nullptr);
    // What is written behind the grid makes it larger even if it is no text.
    model.setNumBufferRows(3);
    model.setNumBufferCols(3);
    load("a,b,c\nd,e\n,f,\n");
    now.hidden = {std::vector<bool>(3), std::vector<bool>(3)};
    now.cells = {{"a", "b", "c"}, {"d", "e", ""}, {"", "f", ""}};
    std::string trace;
    for (int step = 0; step < 100 && !HasFatalFailure(); ++step) {
        auto const& [name, carryOut] = steps[random(int(std::size(steps)))];
        trace += std::string(name) + "; ";
        SCOPED_TRACE(trace);
        (this->*carryOut)();
        expectGrid();
        if (step % 20 == 0)
            expectFile();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RowCountRandomTest, testing::Range(1U, 21U));
