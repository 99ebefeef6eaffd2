#include "core/EncodingUtilities.h"

#include "tests/support/TestFolder.h"

#include <map>

using namespace Utilities;

namespace {

/// Everything known of an encoding, in one line.
QString factsOf(EncodingType encoding) {
    auto const bom = getEncodingBom(encoding);
    QStringList const facts = {
        convertEncodingTypeToString(encoding),
        convertEncodingTypeToCodecName(encoding),
        QString::number(numBytesPerChar(encoding)),
        QString::number(int(getEndianness(encoding))),
        QByteArray(bom.data(), qsizetype(bom.size())).toHex(),
        QString::number(int(convertEncodingStringToType(convertEncodingTypeToString(encoding))))};
    return facts.join('|');
}

} // namespace

TEST(EncodingUtilities, NameCodecWidthOrderMarkAndTypeOfName) {
    QStringList const unicode =
        QString("UTF-8|UTF-8|1|2|efbbbf|0 UTF-16|UTF-16|2|2||1 UTF-16BE|UTF-16BE|2|1|feff|2 "
                "UTF-16LE|UTF-16LE|2|0|fffe|3 UTF-16|UTF-16BE|2|1|feff|1 UTF-16|UTF-16LE|2|0|fffe|1 "
                "UTF-32|UTF-32|4|2||6 UTF-32LE|UTF-32LE|4|0|fffe0000|7 UTF-32BE|UTF-32BE|4|1|0000feff|8 "
                "UTF-32|UTF-32BE|4|1|0000feff|6 UTF-32|UTF-32LE|4|0|fffe0000|6")
            .split(' ');
    std::map<EncodingType, QString> const oddCodecs = {
        {EncodingType::Windows949, "CP949"}, {EncodingType::EucKr, "EUC_KR"}, {EncodingType::EucJp, "EUC_JP"}};
    for (int value = 0; value < int(EncodingType::Invalid); ++value) {
        auto const encoding = EncodingType(value);
        QString const name = convertEncodingTypeToString(encoding);
        QString const shortName = name.section(" (", 0, 0);
        auto const odd = oddCodecs.find(encoding);
        QString const codec = odd == oddCodecs.end() ? shortName : odd->second;
        QString const legacy = name + '|' + codec + "|1|2||" + QString::number(value);
        EXPECT_EQ(factsOf(encoding), unicode.value(value, legacy));
        EXPECT_EQ(convertEncodingStringToType(shortName), convertEncodingStringToType(name));
    }
    EXPECT_EQ(factsOf(EncodingType::Invalid), "||1|2||44");
}

TEST(EncodingUtilities, FreeTextFindsTheFirstKeyInOrder) {
    using enum EncodingType;
    std::vector<std::pair<QString, EncodingType>> const cases = {
        {"ISO-8859-15", Iso8859_15},   {"iso88591", Iso8859_1},   {"iso_8859 1", Iso8859_1},
        {"ISO 8859-11", Iso8859_1},    {"my utf_8 file", Utf8},   {"Utf 16 le", Utf16LE},
        {"utf-32 or utf-16", Utf16},   {"BIG5-hkscs", Big5Hkscs}, {"big 5", Big5},
        {"windows 1258", Windows1258}, {"koi8", Invalid},         {"", Invalid}};
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
        QByteArray content;
        EncodingType guessed;
    };
    using enum EncodingType;
    // A dot stands for a zero byte.
    std::vector<Case> const cases = {{Utf16, ".a.b", Utf16GuessedBE},
                                     {Utf16, "a.b.", Utf16GuessedLE},
                                     {Utf16, ".ab.", Utf16GuessedLE},
                                     {Utf16, "", Utf16GuessedLE},
                                     {Utf16, ".a.", Utf16GuessedLE},
                                     {Utf16, "xxxx.a", Utf16GuessedLE},
                                     {Utf32, "...a...b", Utf32GuessedBE},
                                     {Utf32, "a...b...", Utf32GuessedLE},
                                     {Utf32, ".a.a", Utf32GuessedLE},
                                     {Utf32, "", Utf32GuessedLE},
                                     {Utf8, ".a.b", Utf8},
                                     {Utf16LE, ".a.b", Utf16LE},
                                     {Utf16, QByteArray(1000, 'x') + ".a.a", Utf16GuessedLE},
                                     {Utf16, QByteArray(998, 'x') + ".a.a", Utf16GuessedBE}};
    TestFolder const folder;
    for (auto [given, content, guessed] : cases) {
        QString const path = folder.write("sample.csv", content.replace('.', '\0'));
        EXPECT_EQ(guessEncodingFromFile(given, path), guessed) << content.toPercentEncoding().toStdString();
    }
    EXPECT_EQ(guessEncodingFromFile(Utf16, folder.filePath("missing.csv")), Utf16);
}
