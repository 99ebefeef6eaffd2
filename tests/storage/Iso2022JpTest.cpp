#include "storage/Iso2022Jp.h"

#include "storage/CellCodec.h"
#include "storage/EditableDataContainer.h"
#include "tests/storage/OracleComparison.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace std::string_literals;

namespace {

/// The file with the high bit set wherever a byte is part of a shift or of a shifted character, so that a scanner that
/// knows nothing of shifts sees no structure there.
std::string masked(std::string const& file, std::string const& delimiter) {
    static std::map<std::string, char> const shifts = {
        {"\x1B(B", 'a'}, {"\x1B(J", 'r'}, {"\x1B(I", 'k'}, {"\x1B$@", 'd'}, {"\x1B$B", 'd'}};
    std::string result;
    char set = 'a';
    while (result.size() < file.size()) {
        std::size_t const at = result.size();
        if ((set == 'a' || set == 'r') && file.compare(at, delimiter.size(), delimiter) == 0) {
            result += delimiter;
            continue;
        }
        if (auto const shift = shifts.find(file.substr(at, 3)); shift != shifts.end()) {
            set = shift->second;
            for (char const byte : shift->first)
                result += static_cast<char>(byte | 0x80);
            continue;
        }
        char const byte = file[at];
        if (byte == '\r' || byte == '\n' || byte == '\x1E')
            set = set == 'r' ? set : 'a';
        bool const isPlain = set == 'a' || (set == 'r' && byte != '\\' && byte != '~');
        result += isPlain ? byte : static_cast<char>(byte | 0x80);
    }
    return result;
}

OracleTable unmasked(OracleTable table) {
    for (auto& row : table.rows) {
        for (std::string& cell : row) {
            for (char& byte : cell)
                byte &= 0x7F;
        }
    }
    return table;
}

TEST(Iso2022Jp, AFileReadsAsIfShiftedCharactersHeldNoStructureWhateverTheBlocks) {
    static std::string const parts[] = {
        "\x1B$B", "\x1B$B\",\"\"", "\x1B$@",     "\x1B(B", "\x1B(B", "\x1B(J",  "\x1B(I,,", "\x1B$B0,K\\", "\"",
        "\"",     "\"\"",          ",",          ",",      "\n",     "\r\n",    "\x1E",     "~",           "::",
        "\",",    "\"\n",          "0,1\"\"2::", "abc",    "F|K\\",  "\x1B(B\""};
    static std::pair<OracleKind, std::string> const dialects[] = {
        {OracleKind::OneByte, ","},        {OracleKind::OneByte, "|"},
        {OracleKind::NoDelimiter, ""},     {OracleKind::ByteSequence, "::"},
        {OracleKind::ByteSequence, ",\""}, {OracleKind::ByteSequence, "\x1B$B!\"\x1B(B"}};
    for (unsigned seed = 0; seed < 12000; ++seed) {
        std::mt19937 random(seed);
        auto const& [kind, delimiter] = dialects[seed % std::size(dialects)];
        ScannerDialect dialect = oracleDialect(kind, 1, false, delimiter, random() % 4);
        dialect.shifts = true;
        std::string file;
        for (auto left = random() % (seed % 10 ? 16 : 90); left > 0; --left)
            file += random() % 12  ? parts[random() % std::size(parts)]
                    : random() % 2 ? dialect.delimiter
                                   : std::string(random() % 70, 'x');
        ScannerLimits limits;
        if (random() % 4)
            limits = {8 + random() % 80, 1 + random() % 70, random() % 4 ? UINT32_MAX : 12};
        std::string const seen = masked(file, delimiter.empty() ? "\n" : delimiter);
        ASSERT_EQ(unmasked(oracleScan(kind, seen, 0, dialect)), scanInMemory(kind, file, 0, dialect, limits))
            << "seed " << seed << " " << testing::PrintToString(file);
    }
}

TEST(Iso2022Jp, TablesOfJapaneseTextComeBackInAllStandards) {
    struct Case {
        ParsingStandard standard;
        QString withhold; ///< what this standard has never brought back
    };
    Case const cases[] = {{ParsingStandard::Rfc4180, "\x1E"},
                          {ParsingStandard::AllQuotes, ""},
                          {ParsingStandard::SparseQuotes, "\"\x1E"},
                          {ParsingStandard::DelimiterOnly, "\r\n\x1E,~、"},
                          {ParsingStandard::AsciiSeparated, "\"\r\n\x1E,~、"}};
    // In two bytes these hold quotes, commas, colons.
    QString const alphabet = QStringLiteral("、，。一〇日本語窮屈畔鼢∵ヂあ①¥‾\\~a,\"\r\n\x1E ");
    CellCodec const codec(EncodingType::Iso2022Jp);
    TestFolder folder;
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::mt19937 random(seed);
        Case const& c = cases[seed % 5];
        QString const delimiter = QStringList({",", "~", "::", "、"})[static_cast<int>(random() % 4)];
        auto const setUp = [&](EditableDataContainer& table) {
            table.setFilepath(folder.filePath("t.csv"));
            table.setEncoding(EncodingType::Iso2022Jp);
            table.setDelimiter(delimiter, delimiter);
            table.setParsingStandard(c.standard);
            table.setLineEnding(static_cast<LineEndingType>(random() % 2));
        };
        EditableDataContainer table;
        setUp(table);
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 3; ++col) {
                QString text;
                for (auto left = 1 + random() % 7; left > 0; --left) {
                    QChar const character = alphabet[static_cast<qsizetype>(random()) % alphabet.size()];
                    text += c.withhold.contains(character) ? QChar(u'，') : character;
                }
                table.setValue(row, col, codec.encode(text));
            }
        }
        ASSERT_TRUE(table.saveCSV(false, false, {}, {}));
        EditableDataContainer loaded;
        setUp(loaded);
        ASSERT_TRUE(loaded.loadCSV());
        ASSERT_EQ(loaded.numRows(), 4) << seed << folder.read("t.csv").constData();
        ASSERT_EQ(loaded.numCols(), 3) << seed << folder.read("t.csv").constData();
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 3; ++col)
                ASSERT_EQ(loaded.getValue(row, col), table.getValue(row, col)) << seed;
        }
    }
}

TEST(Iso2022Jp, ACellThatIsOpenLeavesTheNextOnesAsTheyAre) {
    TestFolder folder;
    EditableDataContainer table;
    table.setEncoding(EncodingType::Iso2022Jp);
    for (std::string const& cell : {"\x1B$BF|K\\"s, "\x1B(Ja\\"s, "\x1B$BF"s, "\x1B$"s, "\x1B(I1"s}) {
        table.setValue(0, 0, {cell.begin(), cell.end()});
        table.setValue(0, 1, {'"', ',', '\\'});
        AbstractDataContainer::Bytes line;
        table.getRowCSVString(line, 0, GetRowColMaskType::NoMask, {});
        EXPECT_EQ(std::string(line.begin(), line.end()), cell + "\x1B(B,\"\"\",\\\"\n");
    }
}

} // namespace
