// Sorting a million rows by one column, from the bytes of the table to the rows in their order, in the same run as
// the standard tool on the same keys, one thread, stable, no locale: "sort -s -k" for natural texts (goal: at most 0.9
// of its time) and "sort -s -n" for numbers (0.5).

#include "storage/TableData.h"

#include <QFile>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>

namespace {

constexpr int rows = 1000000;

enum class Keys { Text, Number, Mixed };

QByteArray keyOf(Keys kind, std::mt19937& random) {
    static constexpr char const* words[] = {"north", "valley", "item", "order", "red", "stone", "fig", "lamp"};
    bool const text = kind == Keys::Text || (kind == Keys::Mixed && random() % 4 == 0);
    if (!text)
        return QByteArray::number(double(random() % 100000000) / 100.0, 'f', 2);
    return words[random() % 8] + QByteArray(" ") + words[random() % 8] + QByteArray::number(random() % 100000 + 1);
}

/// A table whose second column holds the keys, and a file of the keys alone.
struct Table {
    QTemporaryDir folder;
    TableData data;
    QString keysFile = folder.filePath(QStringLiteral("keys"));

    explicit Table(Keys kind) {
        std::mt19937 random(1);
        QFile keys(keysFile);
        QFile table(folder.filePath(QStringLiteral("table.csv")));
        keys.open(QIODevice::WriteOnly);
        table.open(QIODevice::WriteOnly);
        for (int row = 0; row < rows; ++row) {
            QByteArray const key = keyOf(kind, random);
            keys.write(key + '\n');
            table.write("row," + key + ",more\n");
        }
        keys.close();
        table.close();
        data.loadCSV(table.fileName(), false, TableData::DataContainerType::Editable, QStringLiteral(","),
                     QStringLiteral(","), EncodingType::Utf8, ParsingStandard::Rfc4180);
    }
};

Table& tableOf(Keys kind) {
    static Table text(Keys::Text);
    static Table number(Keys::Number);
    static Table mixed(Keys::Mixed);
    return kind == Keys::Text ? text : kind == Keys::Number ? number : mixed;
}

void sortRows(benchmark::State& state, Keys kind) {
    Table& table = tableOf(kind);
    TableData::Indexes order;
    for ([[maybe_unused]] auto const round : state) {
        table.data.getSortIndexes(order, 1, Axis::Rows, SortType::Ascending, 0, false);
        table.data.sortLines(Axis::Rows, order);
        state.PauseTiming();
        table.data.unsortLines(Axis::Rows, order);
        state.ResumeTiming();
    }
}

void undoSort(benchmark::State& state, Keys kind) {
    Table& table = tableOf(kind);
    TableData::Indexes order;
    table.data.getSortIndexes(order, 1, Axis::Rows, SortType::Ascending, 0, false);
    for ([[maybe_unused]] auto const round : state) {
        table.data.sortLines(Axis::Rows, order);
        table.data.unsortLines(Axis::Rows, order);
    }
}

void standardTool(benchmark::State& state, Keys kind, char const* options) {
    std::string const command = std::string("LC_ALL=C sort -s --parallel=1 -S 1G ") + options + " " +
                                tableOf(kind).keysFile.toStdString() + " > /dev/null";
    for ([[maybe_unused]] auto const round : state) {
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("sort failed");
    }
}

} // namespace

#define SORT_BENCH(function, ...) BENCHMARK_CAPTURE(function, __VA_ARGS__)->Unit(benchmark::kMillisecond)->UseRealTime()
SORT_BENCH(standardTool, text, Keys::Text, "-k1");
SORT_BENCH(sortRows, text, Keys::Text);
SORT_BENCH(standardTool, number, Keys::Number, "-n");
SORT_BENCH(sortRows, number, Keys::Number);
SORT_BENCH(sortRows, mixed, Keys::Mixed);
SORT_BENCH(undoSort, text, Keys::Text);
