#include "core/EncodingUtilities.h"
#include "storage/EditableDataContainer.h"

using namespace std::string_literals;

namespace {

using Bytes = AbstractDataContainer::Bytes;
using enum EncodingType;

Bytes bytes(std::string const& text) {
    return {text.begin(), text.end()};
}

class Container : public EditableDataContainer {
public:
    using AbstractDataContainer::saveDelimiterBytes, AbstractDataContainer::delimiterBytes;
    using AbstractDataContainer::saveDelimiterChar, AbstractDataContainer::delimiterChar;
};

TEST(Dialect, DelimitersAreSpelledInTheEncoding) {
    struct Case {
        EncodingType encoding;
        QString delimiter;
        std::string expected;
    };
    auto const paragraph = QStringLiteral("§");
    for (auto const& c : std::vector<Case>{{Utf8, QString(), ""},
                                           {Utf16BE, QString(), ""},
                                           {Utf8, paragraph + paragraph, "\xC2\xA7\xC2\xA7"},
                                           {Iso8859_1, paragraph, "\xA7"},
                                           {Windows1252, QStringLiteral("€"), "\x80"},
                                           {Utf16BE, paragraph, "\x00\xA7"s},
                                           {Utf16GuessedBE, QStringLiteral(","), "\x00,"s},
                                           {Utf16, paragraph, "\xA7\x00"s},
                                           {Utf16GuessedLE, QStringLiteral("::"), ":\0:\0"s},
                                           {Utf32BE, QStringLiteral("日"), "\x00\x00\x65\xE5"s},
                                           {Utf32GuessedBE, QStringLiteral(","), "\0\0\0,"s},
                                           {Utf32, QStringLiteral("日"), "\xE5\x65\x00\x00"s},
                                           // A surrogate pair stays two units, each four bytes wide.
                                           {Utf32LE, QStringLiteral("😀"), "\x3D\xD8\x00\x00\x00\xDE\x00\x00"s}}) {
        Container container;
        container.setDelimiter(c.delimiter, QStringLiteral(";"));
        container.setEncoding(c.encoding);
        EXPECT_EQ(container.delimiterBytes, bytes(c.expected)) << static_cast<int>(c.encoding);
        EXPECT_EQ(container.delimiterChar, c.expected.size() == 1 ? c.expected.front() : '\0');
        EXPECT_EQ(container.saveDelimiterChar, Utilities::numBytesPerChar(c.encoding) == 1 ? ';' : '\0');
    }
}

TEST(Dialect, KeyCharactersFollowWidthAndOrder) {
    struct Case {
        EncodingType encoding;
        std::string expectedCr;
    };
    for (auto const& c : std::vector<Case>{{Utf16BE, "\0\r"s},
                                           {Utf16GuessedBE, "\0\r"s},
                                           {Utf16, "\r\0"s},
                                           {Utf16GuessedLE, "\r\0"s},
                                           {Utf32BE, "\0\0\0\r"s},
                                           {Utf32GuessedBE, "\0\0\0\r"s},
                                           {Utf32, "\r\0\0\0"s},
                                           {Utf32GuessedLE, "\r\0\0\0"s},
                                           {ShiftJis, "untouched"}}) {
        Container container;
        container.setEncoding(c.encoding);
        Bytes delimiter, saveDelimiter, cr = bytes("untouched"), lf, rs, quote = bytes("q"), doubled;
        container.setKeyCharVecs(delimiter, saveDelimiter, cr, lf, rs, quote, doubled);
        EXPECT_EQ(cr, bytes(c.expectedCr));
        auto expectedQuote = c.expectedCr;
        std::replace(expectedQuote.begin(), expectedQuote.end(), '\r', '"');
        if (c.encoding == ShiftJis)
            expectedQuote = "q";
        EXPECT_EQ(quote, bytes(expectedQuote));
        EXPECT_EQ(doubled, bytes(expectedQuote + expectedQuote));
    }
}

TEST(Marks, AreRecognisedAndKeptOnlyWhereTheyFit) {
    struct Case {
        EncodingType encoding;
        std::string start;
        bool record;
        int offset;
        std::string mark;
    };
    for (auto const& c : std::vector<Case>{{Utf8, "\xEF\xBB\xBFx", true, 3, "\xEF\xBB\xBF"},
                                           {Utf8, "\xEF\xBB\xBFx", false, 3, ""},
                                           {Utf8, "\xEF\xBB", true, 0, ""},
                                           {Windows1252, "\xEF\xBB\xBFx", true, 0, ""},
                                           {Utf16, "\xFF\xFEx", false, 2, "\xFF\xFE"},
                                           {Utf16, "\xFE\xFFx", true, 2, "\xFE\xFF"},
                                           {Utf16, "a\0b\0"s, true, 0, ""},
                                           {Utf32, "\x00\x00\xFE\xFF"s, false, 4, "\x00\x00\xFE\xFF"s},
                                           {Utf32, "\xFF\xFE\x00\x00"s, true, 4, "\xFF\xFE\x00\x00"s},
                                           {Utf16GuessedLE, "\xFF\xFEx", true, 2, "\xFF\xFE"}}) {
        Container container;
        container.setEncoding(c.encoding);
        EXPECT_EQ(container.computeTableBomOffset(c.start, c.record), c.offset);
        EXPECT_EQ(container.getBom(), bytes(c.mark));
        EXPECT_EQ(container.getHasBom(), !c.mark.empty());
    }
    auto const fits = [](std::string const& mark, EncodingType type) {
        return AbstractDataContainer::isBomConsistentWithEncoding(bytes(mark), type);
    };
    EXPECT_TRUE(fits("\xFF\xFE", Utf16GuessedLE) && fits("\xFF\xFE", Utf16) && fits("\xFE\xFF", Utf16));
    EXPECT_TRUE(fits("\x00\x00\xFE\xFF"s, Utf32) && fits("\xFF\xFE\x00\x00"s, Utf32));
    EXPECT_FALSE(fits("\xFF\xFE", Utf16BE) || fits("\xEF\xBB\xBF", Windows1252) || fits("\xFF\xFE", Utf32));
}

TEST(SaveErrors, ReadAsOneSentenceWithoutThePath) {
    struct Case {
        char const *reason, *expected;
    };
    Container container;
    container.setFilepath(QStringLiteral("/tmp/a.csv"));
    for (auto const& c : std::vector<Case>{{"", "It failed."},
                                           {"Unknown error", "It failed."},
                                           {"No space left on device", "No space left on device."},
                                           {"Cannot open \"/tmp/a.csv\" : denied?!", "Cannot open: denied."},
                                           {"'/tmp/a.csv'", "It failed."},
                                           {"Broken  file /tmp/a.csv , sorry ...", "Broken file, sorry."},
                                           {"?!", ""}})
        EXPECT_EQ(container.formatSaveErrorReason(c.reason, "It  failed!").toStdString(), c.expected);
}

} // namespace
