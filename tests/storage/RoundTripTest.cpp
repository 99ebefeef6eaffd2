// What the check of a save says is held against the real thing: the file written and loaded.

#include "core/EncodingUtilities.h"
#include "storage/Iso2022Jp.h"
#include "storage/SaveReport.h"
#include "storage/SaveRequest.h"
#include "tests/storage/FilledContainer.h"
#include "tests/support/TestFolder.h"

#include <algorithm>
#include <random>

using namespace std::string_literals;

namespace {

using Outcome = SaveReport::Outcome;
using Places = std::vector<std::pair<int, int>>;

constexpr ParsingStandard standards[] = {ParsingStandard::Rfc4180, ParsingStandard::DelimiterOnly,
                                         ParsingStandard::AllQuotes, ParsingStandard::SparseQuotes,
                                         ParsingStandard::AsciiSeparated};
constexpr EncodingType encodings[] = {EncodingType::Utf8,    EncodingType::Utf8,     EncodingType::Utf16LE,
                                      EncodingType::Utf16BE, EncodingType::Utf16,    EncodingType::Utf32LE,
                                      EncodingType::Utf32BE, EncodingType::ShiftJis, EncodingType::Iso2022Jp};

struct Lines {
    std::vector<int> rows, cols;
    bool transposed = false;
};

std::vector<int> others(std::vector<int> const& indexes, int count) {
    std::vector<int> result;
    for (int i = 0; i < count; ++i)
        if (!std::binary_search(indexes.begin(), indexes.end(), i))
            result.push_back(i);
    return result;
}

class RoundTrips : public testing::Test {
protected:
    static SaveRequest to(QString const& path) {
        SaveRequest request;
        request.path = path;
        return request;
    }

    /// Whether a load of the file gives what has been written.
    static bool comesBack(FilledContainer const& table, Lines const& lines, QString const& path) {
        EditableDataContainer loaded;
        loaded.setFilepath(path);
        loaded.setDelimiter(table.getSaveDelimiter(), table.getSaveDelimiter());
        loaded.setEncoding(table.getEncoding());
        loaded.setParsingStandard(table.getParsingStandard());
        EXPECT_TRUE(loaded.loadCSV());
        auto const count = std::ssize(lines.transposed ? lines.cols : lines.rows);
        if (count > 0 && loaded.numRows() != count)
            return false;
        for (int line = 0; line < count; ++line) {
            auto const& cells = lines.transposed ? lines.rows : lines.cols;
            for (int i = 0; i < std::max<int>(loaded.numCols(), std::ssize(cells)); ++i) {
                bool const there = i < std::ssize(cells);
                auto expected = !there             ? AbstractDataContainer::Bytes()
                                : lines.transposed ? table.getValue(cells[i], lines.cols[line])
                                                   : table.getValue(lines.rows[line], cells[i]);
                if (table.getEncoding() == EncodingType::Iso2022Jp) { // a cell that is left open is closed
                    auto const closing = Iso2022Jp::closing({expected.data(), expected.size()});
                    expected.insert(expected.end(), closing.begin(), closing.end());
                }
                if (loaded.getValue(line, i) != expected)
                    return false;
            }
        }
        return true;
    }

    TestFolder folder;
};

/// A table of what its dialect looks for, and of what looks like it.
class NastyTable : public FilledContainer {
public:
    explicit NastyTable(unsigned seed) : random(seed) {
        static char const* const delimiters[] = {",", ",",  ",",  ";",  "::",   "aba", "\u2502",
                                                 "",  "\"", "\n", "\r", "\x1e", ",\""};
        setEncoding(encodings[below(std::size(encodings))]);
        setParsingStandard(standards[seed % 5]);
        setLineEnding(LineEndingType(below(5)));
        setSaveWithTrailingDelimiters(below(2));
        setDelimiter("\t", delimiters[below(3) ? below(4) : below(std::size(delimiters))]);
        if (below(8) == 0)
            setMark(mark());
        auto const rows = static_cast<int>(below(5)), cols = static_cast<int>(1 + below(3));
        for (int row = 0; row < rows; ++row)
            for (int col = 0; col < cols; ++col)
                set(row, col, cell());
        bool const transposed = below(4) == 0; // whose lines have all their cells
        lines = {transposed ? others({}, rows) : someOf(rows), someOf(numCols()), transposed};
    }

    Lines lines; ///< that are saved
    std::vector<int> rowMask() const { return others(lines.rows, numRows()); }
    std::vector<int> colMask() const { return others(lines.cols, numCols()); }

private:
    std::size_t below(std::size_t end) { return random() % end; }

    std::vector<int> someOf(int count) {
        std::vector<int> result;
        for (int i = 0; i < count; ++i)
            if (below(8) > 0)
                result.push_back(i);
        return result;
    }

    std::string mark() {
        static std::string const marks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", "\xFF\xFE\0\0"s, "\0\0\xFE\xFF"s};
        return marks[below(std::size(marks))];
    }

    std::string cell() {
        auto const delimiter = encodeDelimiter(saveDelimiter);
        std::string const separator(delimiter.begin(), delimiter.end()), quote = spelled("\"", encoding);
        std::string result;
        for (auto parts = below(9) % 5; parts > 0; --parts) {
            switch (below(16)) {
            case 0:
            case 1: result += quote; break;
            case 2: result += spelled(std::string(1, "\r\n\x1e"[below(3)]), encoding); break;
            case 3: result += separator; break;
            case 4: result += separator.substr(0, bytesPerChar); break;
            case 5: result += below(4) ? "" : mark(); break;
            case 6: result += below(8) ? "" : std::string(1, "\"\n,\0"[below(4)]); break;
            case 7: result += spelled("x", encoding) + std::string(quote.rbegin(), quote.rend()); break;
            default: result += spelled(std::string(1, "abx;"[below(4)]), encoding);
            }
        }
        return result;
    }

    std::mt19937 random;
};

TEST_F(RoundTrips, ASaveIsHeldBackExactlyIfItWouldNotComeBack) {
    int changed = 0, kept = 0;
    auto const path = folder.filePath("t.csv");
    for (unsigned seed = 0; seed < 2500; ++seed) {
        NastyTable table(seed);
        SavedPart const part{table.lines.transposed, table.rowMask(), table.colMask()};
        QFile::remove(path); // a file system may wait for the disk when a file replaces another one
        auto const report = table.save(to(path), part);
        auto const saved = folder.read("t.csv");
        QFile::remove(path);
        ASSERT_TRUE(table.saveCSV(path, false, part.transposed, part.rowMask, part.colMask));
        // A file is opened in the encoding that its mark tells.
        auto const marked = Utilities::getEncodingFromMark(path);
        bool const same =
            comesBack(table, table.lines, path) && !Utilities::contradictsMark(table.getEncoding(), marked);
        ASSERT_EQ(report.outcome, same ? Outcome::Saved : Outcome::WouldChange) << "seed " << seed;
        ASSERT_EQ(report.changed.isEmpty(), same);
        ASSERT_EQ(saved, same ? folder.read("t.csv") : "unreadable");
        ++(same ? kept : changed);
    }
    EXPECT_GT(std::min(changed, kept), 500);
}

TEST_F(RoundTrips, TellTheCellsAtFault) {
    using enum ParsingStandard;
    using EncodingType::Utf8, EncodingType::Utf16LE, EncodingType::Utf16BE, EncodingType::Utf32LE;
    struct Case {
        ParsingStandard standard;
        QString delimiter;
        EncodingType encoding;
        FilledContainer::Table table;
        Places changed;
        bool moves = true;
    };
    std::vector<Case> const cases = {
        {Rfc4180, ",", Utf8, {{"a", "b\x1e", "\x1e,"}, {"c"}}, {{0, 1}}},
        {Rfc4180, ",", Utf16LE, {{"a", "b\x1e"}, {"\""}}, {}},
        {AllQuotes, ",", Utf8, {{"\"a\n,\x1e", ""}}, {}},
        {SparseQuotes, ",", Utf8, {{"a"}, {"\"b"}}, {}},
        {SparseQuotes, ",", Utf8, {{"\"a", "b\"c"}, {"\"d\"e"}, {"\"f\""}}, {{0, 0}, {2, 0}}},
        {SparseQuotes, ",", Utf8, {{"\"a\""}}, {{0, 0}}, false},
        {SparseQuotes, ",", Utf8, {{"\"a", "b"}, {"\"c\""}, {"x"}}, {{0, 0}, {1, 0}}},
        {DelimiterOnly, ",", Utf8, {{"a,b", "c"}, {"d", "\"", "e\nf"}, {"\""}}, {{0, 0}, {1, 2}}},
        {DelimiterOnly, ",", Utf8, {{"a\r", "b\r"}, {"c"}}, {{0, 0}, {0, 1}}},
        {AsciiSeparated, ",", Utf16BE, {{"a", "\"b", "c"}}, {{0, 1}}},
        {Rfc4180, "::", Utf8, {{"a:", "b:"}, {":c"}}, {{0, 0}}, false},
        {Rfc4180, "::", Utf16LE, {{"a", "b"}}, {{0, 0}}},
        {Rfc4180, "", Utf8, {{"a", "b"}, {"c", ""}, {"", "d"}}, {{0, 0}, {0, 1}, {2, 1}}},
        {Rfc4180, "", Utf32LE, {{""}, {"a"}}, {{0, 0}, {1, 0}}},
        {Rfc4180, ",", Utf8, {{"\xEF\xBB\xBF", "\xEF\xBB\xBF"}}, {{0, 0}}, false},
    };
    for (auto const& c : cases) {
        FilledContainer table;
        table.setEncoding(c.encoding);
        table.setParsingStandard(c.standard);
        table.setDelimiter("\t", c.delimiter);
        table.setSaveWithTrailingDelimiters(false);
        table.fill(c.table);
        auto const report = table.save(to(folder.filePath("t.csv")), {});
        auto const index = &c - cases.data();
        EXPECT_EQ(report.changed.cells, CellRegion::ofCells(c.changed)) << "case " << index;
        EXPECT_EQ(report.changed.moves, !c.changed.empty() && c.moves) << "case " << index;
    }
}

TEST_F(RoundTrips, FindFewCellsAmongManyDoubtfulOnesAndStopAtTooMany) {
    constexpr int rows = 30000;
    FilledContainer table;
    table.setParsingStandard(ParsingStandard::SparseQuotes);
    for (int row = 0; row < rows; ++row)
        table.set(row, 0, "\"\"doubtful, and not at fault");
    Places const bad = {{0, 0}, {20000, 0}, {rows - 2, 0}};
    for (auto const& [row, col] : bad)
        table.set(row, col, "\"a");
    auto const request = to(folder.filePath("t.csv"));
    auto report = table.save(request, {});
    EXPECT_EQ(report.changed.cells, CellRegion::ofCells(bad));
    EXPECT_FALSE(report.changed.goesOn);
    EXPECT_EQ(report.reason, "3 cells would not be read back from " + request.path + " as they are.");
    for (int row = 0; row < rows; ++row)
        table.set(row, 0, "\"a");
    report = table.save(request, {});
    EXPECT_EQ(report.changed.cells.count(), ChangedCells::most);
    EXPECT_TRUE(report.changed.goesOn && report.reason.startsWith("At least 10,000 cells"));
}

} // namespace
