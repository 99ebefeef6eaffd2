// Times of saving a loaded table to a new file until it is on the disk, as ratios to md5sum of the same file. The
// folder of the files comes from GRIDWRIGHT_BENCH_FOLDER.

#include "storage/EditableDataContainer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using enum ParsingStandard;

constexpr int runs = 5;

struct Input {
    char const* name;
    EncodingType encoding = EncodingType::Utf8;
    bool transposed = false;
    bool edited = false; ///< every row has been written to, so that none lies where the load put it
    bool unchecked = false;
    ParsingStandard standard = ParsingStandard::Rfc4180;
    bool doubtful = false; ///< a cell of every line has to be looked at by the check
};

std::string folder() {
    char const* const chosen = std::getenv("GRIDWRIGHT_BENCH_FOLDER");
    return chosen ? chosen : "/tmp/gridwright-bench";
}

double secondsOf(std::function<void()> const& work) {
    auto const begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void editAllRows(EditableDataContainer& table) {
    for (int row = 0; row < table.numRows(); ++row) {
        auto cell = table.getValue(row, 0);
        cell.push_back('0');
        table.setValue(row, 0, cell);
    }
}

// As a load with sparse quotes keeps it, and only a load can tell.
void makeDoubtful(EditableDataContainer& table) {
    for (int row = 0; row < table.numRows(); ++row)
        table.setValue(row, 0, {'"', '"', 'a'});
}

void save(benchmark::State& state, Input const& input) {
    auto const source = folder() + "/" + input.name + ".csv", target = folder() + "/saved.csv";
    EditableDataContainer table;
    table.setFilepath(QString::fromStdString(source));
    table.setEncoding(input.encoding);
    if (!table.loadCSV())
        return state.SkipWithError("cannot load");
    if (input.edited)
        editAllRows(table);
    table.setParsingStandard(input.standard);
    if (input.doubtful)
        makeDoubtful(table);
    SaveRequest request;
    request.path = QString::fromStdString(target);
    request.writeWhatWouldChange = input.unchecked;
    std::vector<double> saves, sums;
    for (auto _ : state) {
        unlink(target.c_str());
        bool saved = false;
        saves.push_back(secondsOf([&] { saved = table.save(request, {input.transposed, {}, {}}).isSaved(); }));
        state.SetIterationTime(saves.back());
        int summed = 0;
        sums.push_back(secondsOf([&] { summed = std::system(("md5sum '" + source + "' > /dev/null").c_str()); }));
        if (!saved || summed != 0)
            return state.SkipWithError("cannot save");
    }
    unlink(target.c_str());
    state.counters["md5sums"] = median(saves) / median(sums);
}

void add(std::string const& name, Input const& input) {
    benchmark::RegisterBenchmark(("save/" + name).c_str(), save, input)
        ->UseManualTime()
        ->Iterations(runs)
        ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] bool const registered = [] {
    add("typical-100", {"typical-100"});
    add("typical-100/unchecked", {"typical-100", EncodingType::Utf8, false, false, true});
    add("typical-100/edited", {"typical-100", EncodingType::Utf8, false, true});
    add("typical-100/delimiter-only", {"typical-100", EncodingType::Utf8, false, false, true, DelimiterOnly});
    add("typical-100/doubtful", {"typical-100", EncodingType::Utf8, false, false, false, SparseQuotes, true});
    add("typical-100/transposed", {"typical-100", EncodingType::Utf8, true});
    add("wide-100/transposed", {"wide-100", EncodingType::Utf8, true});
    add("utf16-100", {"utf16-100", EncodingType::Utf16LE});
    return true;
}();

} // namespace
