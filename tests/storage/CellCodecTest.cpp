#include "core/EncodingUtilities.h"
#include "storage/CellConversion.h"
#include "storage/Iso2022Jp.h"

#include <QTextCodec>

#include <map>
#include <random>

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
    for (auto const encoding : {Utf8, Iso8859_1, Iso8859_7, Windows1252, EucJp, ShiftJis, Gb18030, Koi8R})
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
                                           {ShiftJis, QStringLiteral("\x1A\x1C\x7Fア"), "\x1A\x1C\x7F\x83\x41"},
                                           {Koi8U, QStringLiteral("ї"), "\xA7"},
                                           // As in JIS X 0212, not in rows that one vendor has added.
                                           {EucJp, QStringLiteral("纊丨①"), "\x8F\xD4\xE3\x8F\xB0\xA9\xAD\xA1"},
                                           {Iso2022Jp, QStringLiteral("¥"), "\x1B(J\\\x1B(B"},
                                           {Iso2022Jp, QStringLiteral("‾日"), "\x1B(J~\x1B$BF|\x1B(B"},
                                           // The cell returns to ASCII, so that the delimiter behind it is one.
                                           {Iso2022Jp, QStringLiteral("日本"), "\x1B$BF|K\\\x1B(B"}}) {
        EXPECT_EQ(encoded(c.encoding, c.text), c.bytes) << static_cast<int>(c.encoding);
        EXPECT_EQ(CellCodec(c.encoding).decode(c.bytes), c.text) << static_cast<int>(c.encoding);
    }
}

TEST(CellCodec, ACharacterThatTheEndOfTheCellCutsOffIsAReplacementCharacter) {
    QString const lost(QChar::ReplacementCharacter);
    std::vector<std::pair<EncodingType, std::vector<std::string>>> const cuts = {
        {Utf8, {"\xE6"}},
        {Utf16LE, {"A"}},
        {Utf32BE, {"\0"s, "\0\0\0"s}},
        {Windows949, {"\x81"}},
        {EucKr, {"\xB0"}},
        {EucJp, {"\xB0", "\x8E", "\x8F"}},
        {Iso2022Jp, {"\x1B", "\x1B$BF"}},
        {ShiftJis, {"\x81", "\xE0"}},
        {Big5Hkscs, {"\x88"}},
        {Big5, {"\xA4"}},
        {Gb18030, {"\x81"}},
    };
    for (auto const& [encoding, ends] : cuts) {
        CellCodec const codec(encoding);
        for (std::string const& end : ends) {
            EXPECT_EQ(codec.decode(end), lost) << static_cast<int>(encoding);
            EXPECT_TRUE(codec.hasText(end));
            QString const text = sample(encoding);
            std::string const before = encoded(encoding, text);
            EXPECT_EQ(codec.decode(before + end), text + lost) << static_cast<int>(encoding);
        }
    }
    EXPECT_EQ(CellCodec(EucJp).decode("\x8F\xB0"), lost + lost);
    EXPECT_EQ(CellCodec(Gb18030).decode("\x81\x30\x81"), lost + '0' + lost);
}

/// Bytes that read as a character which is written by other bytes; from and to are first bytes.
struct Exception {
    EncodingType encoding;
    unsigned from, to;
    char const* why;
};

constexpr Exception exceptions[] = {
    {EucJp, 0x8E, 0x8E, "8EE0 to 8EE2: signs of a vendor"},
    {EucJp, 0x8F, 0x8F, "8FA2B7, 8FA2C3, 8FA2F1, 8FF3: twice in the codec's table"},
    {EucJp, 0xAD, 0xAD, "signs that JIS X 0208 has too"},
    {EucJp, 0xF9, 0xFC, "rows of a vendor, which are not written"},
    {ShiftJis, 0x87, 0x87, "signs that JIS X 0208 has too"},
    {ShiftJis, 0xED, 0xEE, "the vendor's characters a second time"},
    {ShiftJis, 0xFA, 0xFA, "FA4A to FA54, FA58, FA5B: roman numbers and signs a second time"},
    {Big5, 0xA2, 0xA2, "lines, A2CC and A2CE, which are there twice"},
    {Big5, 0xF9, 0xF9, "lines, which are there twice"},
    {Big5Hkscs, 0xA2, 0xA2, "as in Big5"},
    {Big5Hkscs, 0xF9, 0xF9, "as in Big5"},
};

bool isException(EncodingType encoding, std::string const& bytes) {
    auto const first = static_cast<unsigned char>(bytes[0]);
    return std::any_of(std::begin(exceptions), std::end(exceptions),
                       [=](Exception const& e) { return e.encoding == encoding && first >= e.from && first <= e.to; });
}

TEST(CellCodec, WhatReadsAsCharactersIsWrittenByTheSameBytesBesideAListedFew) {
    std::vector<std::string> sequences;
    for (int first = 0; first < 256; ++first) {
        sequences.push_back({static_cast<char>(first)});
        for (int second = 0x20; first >= 0x80 && second < 256; ++second)
            sequences.push_back({static_cast<char>(first), static_cast<char>(second)});
    }
    for (int value = static_cast<int>(Iso8859_1); value < static_cast<int>(Invalid); ++value) {
        auto const encoding = static_cast<EncodingType>(value);
        CellCodec const codec(encoding);
        bool const hasLeadBytes = value >= static_cast<int>(Windows949) && value <= static_cast<int>(Gb18030);
        for (std::string const& bytes : sequences) {
            if (bytes.size() > 1 && !hasLeadBytes)
                continue;
            QString const text = codec.decode(bytes);
            bool const isLegal = !text.contains(QChar(QChar::ReplacementCharacter));
            ASSERT_FALSE(text.isEmpty()) << value << " vanishes: " << testing::PrintToString(bytes);
            bool const isShift = encoding == Iso2022Jp && (bytes == "\x0E" || bytes == "\x0F");
            bool const isSame = isLegal && !isShift && !isException(encoding, bytes);
            if (isSame && encoded(encoding, text) != bytes)
                ADD_FAILURE() << value << " " << testing::PrintToString(bytes) << " " << text.toStdString();
        }
    }
}

TEST(CellCodec, WhatAnEncodingLacksIsAQuestionMarkAndKnownAsLost) {
    for (int value = 0; value < static_cast<int>(Invalid); ++value) {
        auto const encoding = static_cast<EncodingType>(value);
        CellCodec const codec(encoding);
        CellConversion const conversion(Utf8, encoding);
        std::string const mark = encoded(encoding, QStringLiteral("?"));
        for (char32_t character = 1; character < 0xE1000; character += character < 0x10000 ? 23 : 4999) {
            if (QChar::isSurrogate(character))
                continue;
            QString const text = QString::fromUcs4(&character, 1);
            std::string const there = encoded(encoding, text);
            bool const isLost = codec.decode(there) != text;
            EXPECT_EQ(there == mark, isLost || text == "?") << value << " " << static_cast<unsigned>(character);
            EXPECT_EQ(conversion.losesText(text.toStdString()), isLost)
                << value << " " << static_cast<unsigned>(character);
        }
    }
    // Characters that are not seen, half a pair, and what stands among others.
    bool loses = false;
    CellCodec(Windows1252).encode(QStringLiteral("a\u200Bb"), &loses);
    EXPECT_TRUE(loses);
    for (auto const encoding : {Utf8, Utf32BE, Windows1252, Gb18030}) {
        CellCodec(encoding).encode(QStringLiteral("é") + QChar(0xD800) + 'z', &loses);
        EXPECT_TRUE(loses) << static_cast<int>(encoding);
        CellCodec(encoding).encode(QStringLiteral("éz"), &loses);
        EXPECT_FALSE(loses) << static_cast<int>(encoding);
    }
    EXPECT_EQ(encoded(Windows1252, QStringLiteral("é日😀z\u200B€")), "\xE9??z?\x80");
    EXPECT_EQ(encoded(Iso8859_1, QStringLiteral("é日😀z")), "\xE9??z");
    EXPECT_EQ(encoded(EucJp, QStringLiteral("日炻ⅰ本")), "\xC6\xFC??\xCB\xDC");
    EXPECT_EQ(encoded(Iso2022Jp, QStringLiteral("日\u200Bｱ本")), "\x1B$BF|\x1B(B??\x1B$BK\\\x1B(B");
}

TEST(CellCodec, EachCellOfIso2022JpBeginsAndEndsInAscii) {
    QString const characters = QStringLiteral("a\",\n\\~¥‾日本鼢ア①ｱ😀\x1B\x0E");
    CellCodec const codec(Iso2022Jp);
    std::mt19937 random(1);
    for (int i = 0; i < 3000; ++i) {
        QString text;
        for (auto left = random() % 6; left > 0; --left)
            text += characters[static_cast<qsizetype>(random()) % characters.size()];
        bool loses = false;
        auto const cell = codec.encode(text, &loses);
        std::string_view const bytes(cell.data(), cell.size());
        ASSERT_EQ(Iso2022Jp::closing(bytes), "") << text.toStdString();
        ASSERT_EQ(codec.decode(bytes) == text, !loses) << text.toStdString();
        ASSERT_EQ(codec.decode(std::string(bytes) + ",z"), codec.decode(bytes) + ",z");
    }
}

TEST(CellCodec, Iso2022JpReadsWhatIsOpenOrNoShift) {
    CellCodec const codec(Iso2022Jp);
    std::pair<std::string, QString> const cells[] = {
        {"\x1B$BF|", QStringLiteral("日")},
        {"\x1B$@F|\x1B(Ja\\~", QStringLiteral("日a¥‾")},
        {"\x1B(I1\x1B(B1", QStringLiteral("ｱ1")},
        {"\x1B$BF\x1B(Bz", QStringLiteral("\uFFFDz")},
        {"\x1B(Cz\x1B$", QStringLiteral("\uFFFD(Cz\uFFFD$")},
        {"\x1B\x1B$BF|\nz", QStringLiteral("\uFFFD日\nz")},
        {"\x1B$B\x81z|K\\", QStringLiteral("\uFFFD燁本")},
        {"\x1B(J\\\n\\", QStringLiteral("¥\n¥")},
        {"\xB1", QStringLiteral("\uFFFD")},
    };
    for (auto const& [bytes, text] : cells)
        EXPECT_EQ(codec.decode(bytes), text) << bytes;
    EXPECT_FALSE(codec.hasText("\x1B$B\x1B(B"));
}

} // namespace
