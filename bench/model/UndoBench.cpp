// Times of redo and undo of commands that change many lines of a large table.

#include "model/CellShift.h"
#include "model/CellTexts.h"
#include "model/DuplicateLines.h"
#include "model/TableModel.h"
#include "model/text/CaseConversion.h"
#include "model/text/LeadingZeros.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/SetModelDataCommand.h"
#include "model/undo/WriteCellsCommand.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int rowCount = 1'000'000;

QString writeTable(QTemporaryDir const& directory) {
    QFile file(directory.filePath(QStringLiteral("table.csv")));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    QByteArray text;
    for (int row = 0; row < rowCount; ++row)
        text +=
            QByteArray::number(row) + ",some text,another text,12.5,2026-01-31," + QByteArray::number(row % 97) + "\n";
    file.write(text);
    return file.fileName();
}

/// A command over the table, of which either redo or undo is measured.
template <class Make>
void measure(benchmark::State& state, bool undo, Make make) {
    QTemporaryDir const directory;
    TableModel model;
    model.loadCSV(writeTable(directory), false, false, QStringLiteral(","), QStringLiteral(","), EncodingType::Utf8,
                  ParsingStandard::Rfc4180);
    auto const command = make(model);
    for (auto _ : state) {
        state.PauseTiming();
        if (undo)
            command->redo();
        state.ResumeTiming();
        undo ? command->undo() : command->redo();
        state.PauseTiming();
        if (!undo)
            command->undo();
        state.ResumeTiming();
    }
}

std::unique_ptr<TableUndoCommand> removeRows(TableModel& model) {
    std::vector<int> rows;
    for (int row = 3; row < rowCount; row += 10)
        rows.push_back(row);
    return std::make_unique<RemoveRowsCommand>(&model, model.getSelection(), rows, true);
}

std::unique_ptr<TableUndoCommand> removeColumns(TableModel& model) {
    return std::make_unique<RemoveColsCommand>(&model, model.getSelection(), std::vector<int>{1, 3}, true);
}

std::unique_ptr<TableUndoCommand> insertRows(TableModel& model) {
    RangeVector rows;
    for (int row = 3; row < rowCount; row += 10)
        rows.emplace_back(row, 0, RangeIndexType::Model);
    return std::make_unique<InsertRowsCommand>(&model, rows, 1, true, false);
}

std::unique_ptr<TableUndoCommand> clearColumn(TableModel& model) {
    RangeVector const column{Range(1, RangeType::Column, RangeIndexType::Model)};
    return std::make_unique<SetModelDataCommand>(&model, column, false);
}

RangeVector const secondColumn{Range(1, RangeType::Column, RangeIndexType::Model)};

std::unique_ptr<TableUndoCommand> upperCase(TableModel& model) {
    auto const toUpper = [](QString const& text) { return text.toUpper(); };
    return std::make_unique<WriteCellsCommand>(&model, secondColumn, changedTexts(model, secondColumn, toUpper), true);
}

std::unique_ptr<TableUndoCommand> camelCase(TableModel& model) {
    return std::make_unique<WriteCellsCommand>(
        &model, secondColumn, changedTexts(model, secondColumn, Utilities::convertToLowerCamelCase), true);
}

std::unique_ptr<TableUndoCommand> insertCellAtTop(TableModel& model) {
    RangeVector const cell{Range(0, 0, RangeIndexType::Model)}; // above a million different numbers
    return std::make_unique<WriteCellsCommand>(&model, cell,
                                               shiftedCells(model, cell, Axis::Columns, CellShift::Insert), true);
}

/// What is worked out before a command can be made.
template <class Work>
void measureWork(char const* name, Work work) {
    benchmark::RegisterBenchmark(name,
                                 [work](benchmark::State& state) {
                                     QTemporaryDir const directory;
                                     TableModel model;
                                     model.loadCSV(writeTable(directory), false, false, QStringLiteral(","),
                                                   QStringLiteral(","), EncodingType::Utf8, ParsingStandard::Rfc4180);
                                     for (auto _ : state)
                                         benchmark::DoNotOptimize(work(model));
                                 })
        ->Iterations(3)
        ->Unit(benchmark::kMillisecond);
}

void registerWork() {
    measureWork("upper case texts of a column of 1000000 rows", [](TableModel const& model) {
        return changedTexts(model, secondColumn, [](QString const& text) { return text.toUpper(); }).size();
    });
    measureWork("title case texts of a column of 1000000 rows", [](TableModel const& model) {
        return changedTexts(model, secondColumn, Utilities::convertToTitleCase).size();
    });
    measureWork("leading zeros of a column of 1000000 rows", [](TableModel const& model) {
        return changedTexts(model, secondColumn, Utilities::removeLeadingZeros).size();
    });
    measureWork("duplicates among 1000000 rows",
                [](TableModel const& model) { return findDuplicateLines(model, Axis::Rows, nullptr).size(); });
    measureWork("duplicates among 1000000 rows, by one column", [](TableModel const& model) {
        std::vector<int> const last{5};
        return findDuplicateLines(model, Axis::Rows, &last).size();
    });
    measureWork("duplicates among 6 columns of 1000000 rows",
                [](TableModel const& model) { return findDuplicateLines(model, Axis::Columns, nullptr).size(); });
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    struct {
        char const* name;
        std::unique_ptr<TableUndoCommand> (*make)(TableModel&);
    } const commands[] = {{"remove 100000 scattered rows of 1000000", removeRows},
                          {"remove 2 columns of 1000000 rows", removeColumns},
                          {"insert 100000 scattered rows into 1000000", insertRows},
                          {"clear a column of 1000000 rows", clearColumn},
                          {"upper case of a column of 1000000 rows", upperCase},
                          {"camel case of a column of 1000000 rows", camelCase},
                          {"a cell inserted above 1000000 others", insertCellAtTop}};
    registerWork();
    for (auto const& command : commands) {
        for (bool const undo : {false, true})
            benchmark::RegisterBenchmark((std::string(undo ? "undo: " : "redo: ") + command.name).c_str(),
                                         [=](benchmark::State& state) { measure(state, undo, command.make); })
                ->Iterations(3)
                ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
