// Times of loading and destroying a table. The folder of the files comes from GRIDWRIGHT_BENCH_FOLDER.

#include "storage/EditableDataContainer.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

struct Input {
    char const* name;
    EncodingType encoding = EncodingType::Utf8;
    char const* delimiter = ",";
};

std::string pathOf(Input const& input) {
    char const* const folder = std::getenv("GRIDWRIGHT_BENCH_FOLDER");
    return std::string(folder ? folder : "/tmp/gridwright-bench") + "/" + input.name + ".csv";
}

double residentMegabytes() {
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

std::unique_ptr<EditableDataContainer> containerFor(Input const& input) {
    auto container = std::make_unique<EditableDataContainer>();
    container->setFilepath(QString::fromStdString(pathOf(input)));
    container->setEncoding(input.encoding);
    container->setDelimiter(QString::fromUtf8(input.delimiter), QString::fromUtf8(input.delimiter));
    return container;
}

double secondsOf(std::chrono::steady_clock::time_point from) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

double cpuSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void load(benchmark::State& state, Input const& input) {
    double destroying = 0;
    double memory = 0;
    for (auto _ : state) {
        double const before = residentMegabytes();
        auto container = containerFor(input);
        double const cpuBegin = cpuSeconds();
        auto const begin = std::chrono::steady_clock::now();
        if (!container->loadCSV())
            state.SkipWithError("cannot load");
        state.SetIterationTime(secondsOf(begin));
        state.counters["cpu_ms"] = (cpuSeconds() - cpuBegin) * 1e3;
        memory = residentMegabytes() - before;
        state.counters["rows"] = container->numRows();
        auto const end = std::chrono::steady_clock::now();
        container.reset();
        destroying = secondsOf(end);
    }
    state.counters["destroy_ms"] = destroying * 1e3;
    state.counters["resident_MB"] = memory;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    static Input const inputs[] = {{"typical-100"},
                                   {"narrow-100"},
                                   {"text-100"},
                                   {"wide-100"},
                                   {"utf16-100", EncodingType::Utf16LE},
                                   {"sequence-100", EncodingType::Utf8, "\u00a7"},
                                   {"typical-1000"}};
    for (Input const& input : inputs)
        benchmark::RegisterBenchmark((std::string("load/") + input.name).c_str(), load, input)
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(5)
            ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
