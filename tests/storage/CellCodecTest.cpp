#include "storage/CellCodec.h"

#include "core/EncodingUtilities.h"

#include <QTextCodec>

#include <map>

using namespace std::string_literals;

namespace {

using enum EncodingType;

std::string encoded(EncodingType encoding, QString const& text) {
    auto const bytes = CellCodec(encoding).encode(text);
    return {bytes.begin(), bytes.end()};
}

/// Characters beyond ASCII that each legacy set can spell.
std::map<EncodingType, char const*> const legacySamples = {
    {Iso8859_1, "ÿé§"},    {Iso8859_2, "Łőę"},   {Iso8859_3, "Ħĝ"},        {Iso8859_4, "Āŗ"},
    {Iso8859_5, "Жя"},     {Iso8859_6, "ابت"},   {Iso8859_7, "Ωλ"},        {Iso8859_8, "שלום"},
    {Iso8859_9, "Ğşı"},    {Iso8859_10, "Đŋ"},   {Iso8859_13, "Ąž"},       {Iso8859_14, "Ŵẁ"},
    {Iso8859_15, "€Œ"},    {Iso8859_16, "Țș€"},  {Windows1250, "Łő€"},     {Windows1251, "Жя№"},
    {Windows1252, "€é™"},  {Windows1253, "Ωλ€"}, {Windows1254, "Ğş€"},     {Windows1255, "שלום₪"},
    {Windows1256, "ابت€"}, {Windows1257, "Ąž€"}, {Windows1258, "Đơ₫"},     {Windows949, "한국똠"},
    {EucKr, "한국"},       {EucJp, "日本ア"},    {Iso2022Jp, "日本"},      {ShiftJis, "日本ソ"},
    {Big5Hkscs, "中文"},   {Big5, "中文"},       {Gb18030, "中文😀\uFEFF"}, {Koi8U, "Їжак"},
    {Koi8R, "Жя"},
};

QString sample(EncodingType encoding) {
    auto const legacy = legacySamples.find(encoding);
    return QString::fromUtf8(legacy == legacySamples.end() ? "\uFEFF\uFEFFé日😀\uFEFF" : legacy->second);
}

TEST(CellCodec, EveryEncodingSpellsItsOwnCharacters) {
    for (int value = 0; value < static_cast<int>(Invalid); ++value) {
        auto const encoding = static_cast<EncodingType>(value);
        auto const name = Utilities::convertEncodingTypeToCodecName(encoding);
        ASSERT_TRUE(QTextCodec::codecForName(name)) << name.toStdString();
        CellCodec const codec(encoding);
        QString const text = sample(encoding);
        for (QString const& cell : {text, QStringLiteral("a,b") + text, text + QStringLiteral("z")}) {
            std::string const bytes = encoded(encoding, cell);
            EXPECT_EQ(codec.decode(bytes), cell) << name.toStdString();
        }
        // No mark before the text: ASCII takes one unit a character, and nothing gives nothing.
        EXPECT_EQ(encoded(encoding, QStringLiteral("a,b")).size(),
                  3U * static_cast<unsigned>(Utilities::numBytesPerChar(encoding)))
            << name.toStdString();
        EXPECT_EQ(encoded(encoding, QString()), "");
        EXPECT_TRUE(codec.decode({}).isNull());
    }
}

TEST(CellCodec, AsciiIsKeptWhereItIsItsOwnBytes) {
    for (auto const encoding : {Utf8, Iso8859_1, Iso8859_7, Windows1252, EucJp, Gb18030, Koi8R})
        EXPECT_TRUE(CellCodec(encoding).keepsAscii()) << static_cast<int>(encoding);
    for (auto const encoding : {Utf16, Utf16BE, Utf32, Iso2022Jp})
        EXPECT_FALSE(CellCodec(encoding).keepsAscii()) << static_cast<int>(encoding);
}

TEST(CellCodec, BytesAreThoseOfTheStandard) {
    struct Case {
        EncodingType encoding;
        QString text;
        std::string bytes;
    };
    for (Case const& c : std::vector<Case>{{Utf8, QStringLiteral("\uFEFFé"), "\xEF\xBB\xBF\xC3\xA9"},
                                           {Utf16, QStringLiteral("\uFEFFA"), "\xFF\xFE"s + "A\0"s},
                                           {Utf16BE, QStringLiteral("\uFEFFA"), "\xFE\xFF"s + "\0A"s},
                                           {Utf16GuessedBE, QStringLiteral("A"), "\0A"s},
                                           {Utf16GuessedLE, QStringLiteral("A"), "A\0"s},
                                           {Utf32, QStringLiteral("😀"), "\x00\xF6\x01\x00"s},
                                           {Utf32GuessedBE, QStringLiteral("😀"), "\x00\x01\xF6\x00"s},
                                           {Iso8859_15, QStringLiteral("€"), "\xA4"},
                                           {Windows1252, QStringLiteral("€"), "\x80"},
                                           {ShiftJis, QStringLiteral("日"), "\x93\xFA"},
                                           {Koi8U, QStringLiteral("ї"), "\xA7"},
                                           // The cell returns to ASCII, so that the delimiter behind it is one.
                                           {Iso2022Jp, QStringLiteral("日本"), "\x1B$BF|K\\\x1B(B"}}) {
        EXPECT_EQ(encoded(c.encoding, c.text), c.bytes) << static_cast<int>(c.encoding);
        EXPECT_EQ(CellCodec(c.encoding).decode(c.bytes), c.text) << static_cast<int>(c.encoding);
    }
}

} // namespace
