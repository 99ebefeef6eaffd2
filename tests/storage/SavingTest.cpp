#include "tests/storage/FilledContainer.h"
#include "tests/support/TestFolder.h"

#include <new>

using namespace std::string_literals;

namespace {

using Bytes = AbstractDataContainer::Bytes;
using enum ParsingStandard;
using enum GetRowColMaskType;

class Container : public FilledContainer {
public:
    QString saveWithoutMemory() {
        return replaceFile({}, [](AtomicFileWriter&) -> bool { throw std::bad_alloc(); }).reason;
    }
    std::string row(int index, GetRowColMaskType type = NoMask, std::vector<int> const& mask = {}) const {
        Bytes out;
        getRowCSVString(out, index, type, mask);
        return {out.begin(), out.end()};
    }
    std::string col(int index, GetRowColMaskType type = NoMask, std::vector<int> const& mask = {}) const {
        Bytes out;
        getColCSVString(out, index, type, mask);
        return {out.begin(), out.end()};
    }
};

class Saving : public testing::Test {
protected:
    std::string saved(bool transposed = false, std::vector<int> const& rowMask = {},
                      std::vector<int> const& colMask = {}) {
        EXPECT_TRUE(table.saveCSV(folder.filePath("t.csv"), false, transposed, rowMask, colMask));
        return folder.read("t.csv").toStdString();
    }

    TestFolder folder;
    Container table;
};

TEST_F(Saving, EveryStandardLineEndingAndWidth) {
    struct Case {
        ParsingStandard standard;
        std::string first, second;
    };
    Case const cases[] = {{Rfc4180, "a,\"b,c\",\"d\"\"e\",\"f\ng\",\"h\ri\"", ",x,,,"},
                          {DelimiterOnly, "a,b,c,d\"e,f\ng,h\ri", ",x,,,"},
                          {AllQuotes, "\"a\",\"b,c\",\"d\"\"e\",\"f\ng\",\"h\ri\"", "\"\",\"x\",\"\",\"\",\"\""},
                          {SparseQuotes, "a,\"b,c\",d\"e,\"f\ng\",\"h\ri\"", ",x,,,"},
                          {AsciiSeparated, "a,b,c,d\"e,f\ng,h\ri", ",x,,,"}};
    std::pair<LineEndingType, std::string> const ends[] = {{LineEndingType::Windows, "\r\n"},
                                                           {LineEndingType::Unix, "\n"},
                                                           {LineEndingType::LegacyUnix2, "\n"},
                                                           {LineEndingType::RecordSeparator, "\x1e"}};
    for (auto const encoding : {EncodingType::Utf8, EncodingType::Utf16BE, EncodingType::Utf16,
                                EncodingType::Utf32GuessedBE, EncodingType::Utf32LE, EncodingType::ShiftJis})
        for (auto const& c : cases)
            for (auto const& [type, end] : ends) {
                Container container;
                container.setEncoding(encoding);
                container.setParsingStandard(c.standard);
                container.setLineEnding(type);
                container.fill({{"a", "b,c", "d\"e", "f\ng", "h\ri"}, {"", "x"}});
                bool const wide = Utilities::numBytesPerChar(encoding) > 1;
                auto const lineEnd = wide && type == LineEndingType::RecordSeparator ? "\n" : end;
                EXPECT_EQ(container.row(0), spelled(c.first + lineEnd, encoding)) << static_cast<int>(encoding);
                EXPECT_EQ(container.row(1), spelled(c.second + lineEnd, encoding)) << static_cast<int>(encoding);
                ASSERT_TRUE(container.saveCSV(folder.filePath("t.csv"), false, false, {}, {}));
                EXPECT_EQ(folder.read("t.csv").toStdString(), container.row(0) + container.row(1));
            }
}

TEST_F(Saving, LinesInDetail) {
    struct Case {
        ParsingStandard standard;
        QString delimiter;
        bool trailing;
        std::vector<std::string> cells;
        GetRowColMaskType type;
        std::vector<int> mask;
        std::string expected;
    };
    std::string const long16 = "0123456789abcdef";
    auto const cases = std::vector<Case>{{SparseQuotes, ",", true, {"a,b\"c"}, NoMask, {}, "\"a,b\"\"c\",,,"},
                                         {SparseQuotes, ",", true, {"\"a\""}, NoMask, {}, "\"a\",,,"},
                                         {Rfc4180, ",", true, {"a"}, NoMask, {}, "a,,,"},
                                         {Rfc4180, ",", false, {"a"}, NoMask, {}, "a"},
                                         {Rfc4180, ",", false, {"", "", "b"}, Exclude, {0, 3}, ",b"},
                                         {Rfc4180, ",", false, {}, NoMask, {}, ""},
                                         {AllQuotes, ",", true, {"a"}, Exclude, {0, 2}, "\"\",\"\""},
                                         {AllQuotes, ",", true, {"a"}, Include, {0, 3, 9}, "\"a\",\"\",\"\""},
                                         {Rfc4180, ",", true, {"a", "b"}, Include, {1, 2}, "b,"},
                                         {Rfc4180, ",", true, {"a", "b"}, Include, {}, ""},
                                         {Rfc4180, ",", true, {"a", "b"}, Exclude, {0, 1, 2, 3}, ""},
                                         {AllQuotes, "", true, {"a\"", "b\n"}, NoMask, {}, "a\"b\n"},
                                         {Rfc4180, "::", true, {"a:b", "a::b", ":"}, NoMask, {}, "a:b::\"a::b\":::::"},
                                         {Rfc4180, ";", false, {"a,b", "a;b"}, NoMask, {}, "a,b;\"a;b\""},
                                         {Rfc4180, "\n", false, {"a", "b\n"}, NoMask, {}, "a\n\"b\n\""},
                                         {Rfc4180, "\"", false, {"a", "b\"c"}, NoMask, {}, "a\"\"b\"\"c\""},
                                         {Rfc4180,
                                          ",",
                                          false,
                                          {long16 + ",", long16 + "x", long16 + long16 + "\""},
                                          NoMask,
                                          {},
                                          "\"" + long16 + ",\"," + long16 + "x,\"" + long16 + long16 + "\"\"\""}};
    for (auto const& c : cases) {
        Container container;
        container.setParsingStandard(c.standard);
        container.setDelimiter("\t", c.delimiter);
        container.setSaveWithTrailingDelimiters(c.trailing);
        container.fill({c.cells.empty() ? std::vector<std::string>{""} : c.cells});
        container.resizeCols(4);
        EXPECT_EQ(container.row(0, c.type, c.mask), c.expected + "\n");
    }
    // A row of nothing but stored empty cells keeps its length.
    table.setSaveWithTrailingDelimiters(false);
    table.fill({{"a", "b", "c"}});
    table.setRow(0, {{}, {}});
    EXPECT_EQ(table.row(0), ",\n");
}

TEST_F(Saving, ASpecialByteIsFoundAtEveryPlaceOfEveryLength) {
    for (int length = 1; length <= 50; ++length)
        for (int place = 0; place < length; ++place) {
            Bytes cell(length, 'x');
            table.setValue(0, 0, cell);
            ASSERT_EQ(table.row(0), std::string(length, 'x') + "\n");
            cell[place] = "\r\n,"[place % 3];
            table.setValue(0, 0, cell);
            ASSERT_EQ(table.row(0), '"' + std::string(cell.begin(), cell.end()) + "\"\n");
        }
}

TEST_F(Saving, WideCellsAreSearchedByUnits) {
    table.setEncoding(EncodingType::Utf16BE);
    table.setValue(0, 0, {'\x2C', '\x00'});                 // the comma's byte in a high place is none
    table.setValue(0, 1, {'\x41', '\x00', '\x22', '\x41'}); // nor is 00 22 across two units a quote
    table.setValue(0, 2, {'\x41', '\x00', '\x22', '\x00', '\x00', '\x22'});
    EXPECT_EQ(table.row(0), "\x2C\0\0,\x41\0\"\x41\0,\0\"\x41\0\"\0\0\"\0\"\0\"\0\n"s);
}

TEST_F(Saving, ColumnsBecomeLinesOfATransposedTable) {
    table.fill({{"a", "b,", "c"}, {"d"}, {""}, {"", "e\""}});
    table.resizeRows(5);
    EXPECT_EQ(table.col(0), "a,d,,,\n");
    EXPECT_EQ(table.col(1, Exclude, {1, 2}), "\"b,\",\"e\"\"\",\n");
    EXPECT_EQ(table.col(2, Include, {1, 0}), ",c\n");
    EXPECT_EQ(saved(true, {}, {1}), "a,d,,,\nc,,,,\n");
    table.setSaveWithTrailingDelimiters(false);
    EXPECT_EQ(saved(true), "a,d\n\"b,\",,,\"e\"\"\"\nc\n");
    table.setEncoding(EncodingType::Utf16LE);
    EXPECT_EQ(table.col(9), ",\0,\0,\0,\0\n\0"s);
}

TEST_F(Saving, LeavesOutMaskedAndUnstoredRowsAndKeepsThemInTheTable) {
    table.fill({{"a", "b"}, {"c", "d"}, {"e", "f"}});
    table.resizeRows(6);
    EXPECT_EQ(saved(false, {1}, {0}), "b\nf\n");
    EXPECT_EQ(saved(), "a,b\nc,d\ne,f\n");
}

TEST_F(Saving, KeepsAMarkThatStillFits) {
    table.fill({{"a"}});
    table.setMark("\xEF\xBB\xBF");
    EXPECT_EQ(saved(), "\xEF\xBB\xBF"
                       "a\n");
    table.setEncoding(EncodingType::Windows1252);
    EXPECT_EQ(saved(), "a\n");
}

TEST_F(Saving, WritesCellsAndTablesThatExceedTheBuffer) {
    std::string const big(3 << 20, 'b');
    table.fill({{"a", big + ",", big}, {big + "\"" + big, "c"}});
    EXPECT_EQ(saved(), "a,\"" + big + ",\"," + big + "\n\"" + big + "\"\"" + big + "\",c,\n");
}

TEST_F(Saving, AFailureSaysWhyAndKeepsThePathAndTheFile) {
    table.fill({{"a"}});
    EXPECT_FALSE(table.saveCSV(false, false, {}, {}));
    EXPECT_EQ(table.getLastSaveError(), "No file path was specified.");
    auto const good = saved();
    auto const bad = folder.filePath("no/t.csv");
    EXPECT_FALSE(table.saveCSV(bad, false, false, {}, {}));
    EXPECT_EQ(table.getLastSaveError(), "There is no folder " + folder.filePath("no") + ".");
    EXPECT_EQ(table.getFilepath(), folder.filePath("t.csv"));
    EXPECT_EQ(table.saveWithoutMemory(), "There is not enough memory to save the file.");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("t.csv"));
    EXPECT_EQ(saved(), good);
    EXPECT_TRUE(table.getLastSaveError().isEmpty());
}

} // namespace
