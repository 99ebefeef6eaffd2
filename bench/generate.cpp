// Writes the files that the benchmarks read. The same call writes the same bytes.
//   generate FOLDER [MEGABYTES [KIND...]]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <map>
#include <random>
#include <string>
#include <string_view>

namespace {

using Random = std::mt19937_64;

char const* const cities[] = {"Berlin", "Oslo",  "Rome",   "Lisbon", "Prague", "Vienna",
                              "Dublin", "Paris", "Madrid", "Athens", "Warsaw", "Zagreb"};
char const* const names[] = {"Anna", "Bela",  "Carla", "David", "Edith", "Felix",
                             "Gina", "Henry", "Irene", "Jonas", "Karin", "Lukas"};
char const* const words[] = {"table", "river", "small", "light", "north",  "paper",  "early",
                             "stone", "green", "house", "water", "letter", "window", "yellow"};

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string result;
    for (std::string_view const part : parts)
        result += part;
    return result;
}

std::string number(Random& random, std::uint64_t below) {
    return std::to_string(random() % below);
}

template <std::size_t count>
std::string oneOf(Random& random, char const* const (&list)[count]) {
    return list[random() % count];
}

std::string twoDigits(std::uint64_t value) {
    return joined({value < 10 ? "0" : "", std::to_string(value)});
}

std::string date(Random& random) {
    std::string const year = twoDigits(random() % 30);
    std::string const month = twoDigits(1 + random() % 12);
    return joined({"20", year, "-", month, "-", twoDigits(1 + random() % 28)});
}

std::string decimal(Random& random) {
    return number(random, 10000) + "." + twoDigits(random() % 100);
}

std::string remark(Random& random) {
    switch (random() % 8) {
    case 0: return joined({"\"", oneOf(random, words), ", ", oneOf(random, words), "\""});
    case 1: return joined({"\"the \"\"", oneOf(random, words), "\"\" one\""});
    case 2:
    case 3: return "";
    default: return oneOf(random, words) + " " + oneOf(random, words);
    }
}

/// Twelve columns of all sorts.
void typicalRow(Random& random, std::string& out, std::uint64_t row) {
    std::string const cells[] = {std::to_string(row + 100000),
                                 oneOf(random, names) + " " + oneOf(random, names),
                                 date(random),
                                 decimal(random),
                                 oneOf(random, cities),
                                 number(random, 100),
                                 random() % 3 ? oneOf(random, words) : "",
                                 decimal(random),
                                 remark(random),
                                 date(random) + " " + twoDigits(random() % 24) + ":" + twoDigits(random() % 60),
                                 number(random, 1000000000000),
                                 random() % 2 ? "true" : "false"};
    for (std::string const& cell : cells) {
        out += cell;
        out += ',';
    }
    out.back() = '\n';
}

void narrowRow(Random& random, std::string& out, std::uint64_t) {
    out += number(random, 1000) + "," + number(random, 100) + "," + number(random, 10) + "\n";
}

std::string text(Random& random, std::size_t bytes) {
    std::string result;
    while (result.size() < bytes)
        result += oneOf(random, words) + " ";
    return result;
}

void longTextRow(Random& random, std::string& out, std::uint64_t row) {
    out += std::to_string(row) + "," + text(random, 200 + random() % 600) + ",";
    if (random() % 3 == 0)
        out += joined({"\"", text(random, 200), "\n", text(random, 200), "\"\n"});
    else
        out += text(random, 100 + random() % 400) + "\n";
}

void wideRow(Random& random, std::string& out, std::uint64_t) {
    for (int col = 0; col < 2000; ++col) {
        out += col % 3 ? oneOf(random, words) + oneOf(random, cities) + oneOf(random, names) : decimal(random) + "000";
        out += col < 1999 ? ',' : '\n';
    }
}

std::string asUtf16(std::string const& narrow) {
    std::string wide;
    wide.reserve(2 * narrow.size());
    for (char const c : narrow) {
        wide += c;
        wide += '\0';
    }
    return wide;
}

std::string withTwoByteDelimiter(std::string const& line) {
    std::string result;
    bool quoted = false;
    for (char const c : line) {
        quoted ^= c == '"';
        if (c == ',' && !quoted)
            result += "\xc2\xa7";
        else
            result += c;
    }
    return result;
}

struct Kind {
    std::function<void(Random&, std::string&, std::uint64_t)> row;
    std::function<std::string(std::string const&)> dress;
};

void write(std::filesystem::path const& path, Kind const& kind, std::uint64_t bytes) {
    if (std::filesystem::exists(path))
        return;
    std::ofstream file(path, std::ios::binary);
    Random random(42);
    std::string line;
    for (std::uint64_t row = 0, written = 0; written < bytes; ++row) {
        line.clear();
        kind.row(random, line, row);
        std::string const dressed = kind.dress ? kind.dress(line) : line;
        file << dressed;
        written += dressed.size();
    }
}

} // namespace

int main(int argc, char** argv) {
    std::filesystem::path const folder = argc > 1 ? argv[1] : "/tmp/gridwright-bench";
    std::uint64_t const megabytes = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 100;
    std::map<std::string, Kind> const kinds = {
        {"typical", {typicalRow, {}}},    {"narrow", {narrowRow, {}}},
        {"text", {longTextRow, {}}},      {"wide", {wideRow, {}}},
        {"utf16", {typicalRow, asUtf16}}, {"sequence", {typicalRow, withTwoByteDelimiter}}};
    std::filesystem::create_directories(folder);
    for (auto const& [name, kind] : kinds) {
        bool const chosen = argc <= 3 || std::find(argv + 3, argv + argc, name) != argv + argc;
        if (chosen)
            write(folder / (name + "-" + std::to_string(megabytes) + ".csv"), kind, megabytes * 1000000);
    }
    return 0;
}
