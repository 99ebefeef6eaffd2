#include "tests/storage/OracleComparison.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace std::string_literals;

constexpr OracleKind kinds[] = {OracleKind::OneByte, OracleKind::NoDelimiter, OracleKind::MultiByte,
                                OracleKind::NoDelimiterMultiByte, OracleKind::ByteSequence};

/// Text rich in what a scanner has to look at, with the delimiter strewn in whole.
std::string someFile(std::mt19937& random, ScannerDialect const& dialect, std::size_t parts) {
    static std::string const bytes("\"\"\"\"\r\n\n\r\x1e,,ab\0\"\xef\xbb\xbf\xff\xfe"s);
    std::string file;
    auto const width = static_cast<std::size_t>(dialect.unitBytes);
    for (std::size_t i = 0; i < parts; ++i) {
        switch (random() % 9) {
        case 0: file += dialect.delimiter; break;
        case 1: file += dialect.quote; break;
        case 2: file += dialect.cr + (random() % 2 ? dialect.lf : dialect.rs); break;
        case 3: file += random() % 2 ? dialect.lf : dialect.rs; break;
        case 4: file += dialect.quote + dialect.delimiter; break;
        case 5: file += std::string(width * (random() % 40), 'x'); break;
        case 6: // what looks like a doubled quote by its bytes but does not align to units
            file += dialect.delimiter + dialect.quote + 'x' + dialect.quote + dialect.quote +
                    std::string(width - 1, 'y') + dialect.quote + dialect.delimiter;
            break;
        default:
            for (std::size_t k = 0; k < width; ++k)
                file += width > 1 && random() % 2 ? '\0' : bytes[random() % bytes.size()];
        }
    }
    if (random() % 4 == 0)
        file.push_back('z');
    return file;
}

std::string someDelimiter(std::mt19937& random, OracleKind kind, int unitBytes, bool bigEndian) {
    static std::string const choices = ",,,;\t\"\r\n\x1e";
    if (kind == OracleKind::ByteSequence) {
        static std::string const sequences[] = {
            "\xc2\xa7", "\xc2\xa7\xc2\xa7", "::", ",\"", "\"\"", "a\"", "\"x\"", "\r\n", "\n,", "\r\r",
            "||||",     "\x1e\x1e"};
        return sequences[random() % std::size(sequences)];
    }
    std::string unit(static_cast<std::size_t>(unitBytes), '\0');
    (bigEndian ? unit.back() : unit.front()) = choices[random() % choices.size()];
    return kind == OracleKind::MultiByte && random() % 8 == 0 ? unit + unit : unit;
}

TEST(ScannerProperty, AnyFileReadsAsByTheOracleWhateverTheBlocks) {
    for (unsigned seed = 0; seed < 40000; ++seed) {
        std::mt19937 random(seed);
        OracleKind const kind = kinds[seed % 5];
        bool const wide = kind == OracleKind::MultiByte || kind == OracleKind::NoDelimiterMultiByte;
        int const unitBytes = wide ? (random() % 2 ? 2 : 4) : 1;
        bool const bigEndian = random() % 2;
        ScannerDialect const dialect =
            oracleDialect(kind, unitBytes, bigEndian, someDelimiter(random, kind, unitBytes, bigEndian), random() % 4);
        std::string const file = someFile(random, dialect, random() % (seed % 10 ? 24 : 160));
        std::size_t const mark =
            std::min<std::size_t>(random() % 4 ? 0 : static_cast<std::size_t>(unitBytes), file.size());
        ScannerLimits limits;
        if (random() % 4)
            limits = {8 + random() % 80, 1 + random() % 70, random() % 4 ? UINT32_MAX : 12};
        ASSERT_EQ(oracleScan(kind, file, mark, dialect), scanInMemory(kind, file, mark, dialect, limits))
            << "seed " << seed;
    }
}

TEST(ScannerProperty, ABorderBetweenReadsOrBlocksChangesNothingWhereverItFalls) {
    for (OracleKind const kind : kinds) {
        bool const wide = kind == OracleKind::MultiByte || kind == OracleKind::NoDelimiterMultiByte;
        int const unitBytes = wide ? 2 : 1;
        std::string const plain = "a,\"b\"\"c\",\"d\"e\r\n\"\"\"\",,\r\r\n\"x,\ny\"::\"\"\n::f::\"g\"\r\n\"open\r\n,";
        std::string file;
        for (char const byte : plain)
            file += wide ? std::string{byte, '\0'} : std::string{byte};
        std::string const delimiter = kind == OracleKind::ByteSequence ? "::" : wide ? std::string(",\0", 2) : ",";
        ScannerDialect const dialect = oracleDialect(kind, unitBytes, false, delimiter, true);
        OracleTable const expected = oracleScan(kind, file, 0, dialect);
        for (std::size_t block = 8; block < file.size() + 2; ++block)
            for (std::size_t read = 1; read < file.size() + 2; ++read)
                ASSERT_EQ(expected, scanInMemory(kind, file, 0, dialect, {block, read, UINT32_MAX}))
                    << "block " << block << " read " << read;
    }
}

} // namespace
