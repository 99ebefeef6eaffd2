#include "core/EncodingUtilities.h"

#include <QFile>
#include <QTemporaryDir>

#include <string>

using namespace Utilities;

namespace {

struct EncodingFacts {
    EncodingType encoding;
    char const* name;
    char const* codec;
    int width;
    Endianness endianness;
    std::string bom;
    EncodingType typeOfName;
};

constexpr auto None = Endianness::NotApplicable;

// The Unicode rows, and of the others those whose codec is not simply the name without its explanation.
std::vector<EncodingFacts> const Facts = {
    {EncodingType::Utf8, "UTF-8", "UTF-8", 1, None, "\xEF\xBB\xBF", EncodingType::Utf8},
    {EncodingType::Utf16, "UTF-16", "UTF-16", 2, None, "", EncodingType::Utf16},
    {EncodingType::Utf16BE, "UTF-16BE", "UTF-16BE", 2, Endianness::Big, "\xFE\xFF", EncodingType::Utf16BE},
    {EncodingType::Utf16LE, "UTF-16LE", "UTF-16LE", 2, Endianness::Little, "\xFF\xFE", EncodingType::Utf16LE},
    {EncodingType::Utf16GuessedBE, "UTF-16", "UTF-16BE", 2, Endianness::Big, "\xFE\xFF", EncodingType::Utf16},
    {EncodingType::Utf16GuessedLE, "UTF-16", "UTF-16LE", 2, Endianness::Little, "\xFF\xFE", EncodingType::Utf16},
    {EncodingType::Utf32, "UTF-32", "UTF-32", 4, None, "", EncodingType::Utf32},
    {EncodingType::Utf32LE, "UTF-32LE", "UTF-32LE", 4, Endianness::Little, {"\xFF\xFE\0\0", 4}, EncodingType::Utf32LE},
    {EncodingType::Utf32BE, "UTF-32BE", "UTF-32BE", 4, Endianness::Big, {"\0\0\xFE\xFF", 4}, EncodingType::Utf32BE},
    {EncodingType::Utf32GuessedBE, "UTF-32", "UTF-32BE", 4, Endianness::Big, {"\0\0\xFE\xFF", 4}, EncodingType::Utf32},
    {EncodingType::Utf32GuessedLE,
     "UTF-32",
     "UTF-32LE",
     4,
     Endianness::Little,
     {"\xFF\xFE\0\0", 4},
     EncodingType::Utf32},
    {EncodingType::Windows949, "Windows-949 (Korean)", "CP949", 1, None, "", EncodingType::Windows949},
    {EncodingType::EucKr, "EUC-KR (Korean)", "EUC_KR", 1, None, "", EncodingType::EucKr},
    {EncodingType::EucJp, "EUC-JP (Japanese)", "EUC_JP", 1, None, "", EncodingType::EucJp},
    {EncodingType::Invalid, "", "", 1, None, "", EncodingType::Invalid},
};

} // namespace

TEST(EncodingUtilities, UnicodeAndOddlyNamedEncodings) {
    for (auto const& facts : Facts) {
        SCOPED_TRACE(int(facts.encoding));
        auto const bom = getEncodingBom(facts.encoding);
        EXPECT_EQ(convertEncodingTypeToString(facts.encoding), facts.name);
        EXPECT_EQ(convertEncodingTypeToCodecName(facts.encoding), facts.codec);
        EXPECT_EQ(numBytesPerChar(facts.encoding), facts.width);
        EXPECT_EQ(getEndianness(facts.encoding), facts.endianness);
        EXPECT_EQ(std::string(bom.begin(), bom.end()), facts.bom);
        EXPECT_EQ(convertEncodingStringToType(facts.name), facts.typeOfName);
    }
}

TEST(EncodingUtilities, LegacyEncodingsReadTheirOwnNamesBack) {
    for (int value = int(EncodingType::Iso8859_1); value < int(EncodingType::Invalid); ++value) {
        auto const encoding = EncodingType(value);
        QString const name = convertEncodingTypeToString(encoding);
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(convertEncodingStringToType(name), encoding);
        EXPECT_EQ(convertEncodingStringToType(name.section(" (", 0, 0)), encoding);
        EXPECT_EQ(numBytesPerChar(encoding), 1);
        EXPECT_EQ(getEndianness(encoding), None);
        EXPECT_TRUE(getEncodingBom(encoding).empty());
        if (encoding < EncodingType::Windows949 || encoding > EncodingType::EucJp) {
            EXPECT_EQ(QString(convertEncodingTypeToCodecName(encoding)), name.section(" (", 0, 0));
        }
    }
}

TEST(EncodingUtilities, FreeTextFindsTheFirstKeyInOrder) {
    std::vector<std::pair<QString, EncodingType>> const cases = {
        {"ISO-8859-15", EncodingType::Iso8859_15},
        {"iso88591", EncodingType::Iso8859_1},
        {"iso_8859 1", EncodingType::Iso8859_1},
        {"iso 8859-11", EncodingType::Iso8859_1},
        {"my utf_8 file", EncodingType::Utf8},
        {"Utf 16 le", EncodingType::Utf16LE},
        {"utf-32 or utf-16", EncodingType::Utf16},
        {"BIG5-hkscs", EncodingType::Big5Hkscs},
        {"big 5", EncodingType::Big5},
        {"windows 1258", EncodingType::Windows1258},
        {"koi8", EncodingType::Invalid},
        {"", EncodingType::Invalid},
    };
    for (auto const& [text, encoding] : cases) {
        EXPECT_EQ(convertEncodingStringToType(text), encoding) << text.toStdString();
        EXPECT_EQ(encodingValid(text), encoding != EncodingType::Invalid) << text.toStdString();
    }
}

TEST(EncodingUtilities, ListToChooseFrom) {
    QStringList const names = getEncodingStringList();
    QStringList const unicode = {"UTF-8", "UTF-16", "UTF-16BE", "UTF-16LE", "UTF-32", "UTF-32LE", "UTF-32BE"};
    EXPECT_EQ(names.mid(0, 7), unicode);
    EXPECT_EQ(names.size(), 7 + 33);
    EXPECT_EQ(names.indexOf("Big5 (Chinese)") + 1, names.indexOf("Big5-HKSCS (Chinese)"));
    EXPECT_EQ(names.indexOf("Shift-JIS (Japanese)") + 1, names.indexOf("Big5 (Chinese)"));
}

TEST(EncodingUtilities, GuessesByteOrderFromZeros) {
    struct Case {
        EncodingType given;
        std::string content;
        EncodingType guessed;
    };
    using enum EncodingType;
    std::vector<Case> const cases = {
        {Utf16, {"\0a\0b", 4}, Utf16GuessedBE},
        {Utf16, {"a\0b\0", 4}, Utf16GuessedLE},
        {Utf16, {"\0ab\0", 4}, Utf16GuessedLE},
        {Utf16, "", Utf16GuessedLE},
        {Utf16, {"\0a\0", 3}, Utf16GuessedLE},
        {Utf16, {"xxxx\0a", 6}, Utf16GuessedLE},
        {Utf16, std::string(1000, 'x') + std::string("\0a\0a", 4), Utf16GuessedLE},
        {Utf16, std::string(998, 'x') + std::string("\0a\0a", 4), Utf16GuessedBE},
        {Utf32, {"\0\0\0a\0\0\0b", 8}, Utf32GuessedBE},
        {Utf32, {"a\0\0\0b\0\0\0", 8}, Utf32GuessedLE},
        {Utf32, {"\0a\0a", 4}, Utf32GuessedLE},
        {Utf32, "", Utf32GuessedLE},
        {Utf8, {"\0a\0b", 4}, Utf8},
        {Utf16LE, {"\0a\0b", 4}, Utf16LE},
    };
    QTemporaryDir folder;
    QString const path = folder.filePath("sample.csv");
    for (auto const& [given, content, guessed] : cases) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.data(), qint64(content.size()));
        file.close();
        EXPECT_EQ(guessEncodingFromFile(given, path), guessed) << testing::PrintToString(content);
    }
    EXPECT_EQ(guessEncodingFromFile(Utf16, folder.filePath("missing.csv")), Utf16);
}
