#include "core/EncodingUtilities.h"

#include "core/KeywordMatch.h"

#include <QFile>

#include <array>
#include <string_view>
#include <utility>

namespace {

using namespace std::string_view_literals;

struct Encoding {
    char const* displayName;
    char const* codecName;
    int bytesPerChar = 1;
    Endianness endianness = Endianness::NotApplicable;
    std::string_view bom = {};
};

constexpr auto Little = Endianness::Little;
constexpr auto Big = Endianness::Big;
constexpr auto NoOrder = Endianness::NotApplicable;
constexpr auto Utf16BEMark = "\xFE\xFF"sv;
constexpr auto Utf16LEMark = "\xFF\xFE"sv;
constexpr auto Utf32BEMark = "\0\0\xFE\xFF"sv;
constexpr auto Utf32LEMark = "\xFF\xFE\0\0"sv;

// Indexed by EncodingType.
constexpr std::array<Encoding, 45> Encodings = {{
    {"UTF-8", "UTF-8", 1, NoOrder, "\xEF\xBB\xBF"sv},
    {"UTF-16", "UTF-16", 2},
    {"UTF-16BE", "UTF-16BE", 2, Big, Utf16BEMark},
    {"UTF-16LE", "UTF-16LE", 2, Little, Utf16LEMark},
    {"UTF-16", "UTF-16BE", 2, Big, Utf16BEMark},
    {"UTF-16", "UTF-16LE", 2, Little, Utf16LEMark},
    {"UTF-32", "UTF-32", 4},
    {"UTF-32LE", "UTF-32LE", 4, Little, Utf32LEMark},
    {"UTF-32BE", "UTF-32BE", 4, Big, Utf32BEMark},
    {"UTF-32", "UTF-32BE", 4, Big, Utf32BEMark},
    {"UTF-32", "UTF-32LE", 4, Little, Utf32LEMark},
    {"ISO 8859-1 (Western European)", "ISO 8859-1"},
    {"ISO 8859-2 (Central European)", "ISO 8859-2"},
    {"ISO 8859-3 (South European)", "ISO 8859-3"},
    {"ISO 8859-4 (North European)", "ISO 8859-4"},
    {"ISO 8859-5 (Latin/Cyrillic)", "ISO 8859-5"},
    {"ISO 8859-6 (Latin/Arabic)", "ISO 8859-6"},
    {"ISO 8859-7 (Latin/Green)", "ISO 8859-7"},
    {"ISO 8859-8 (Latin/Hebrew)", "ISO 8859-8"},
    {"ISO 8859-9 (Turkish)", "ISO 8859-9"},
    {"ISO 8859-10 (Nordic)", "ISO 8859-10"},
    {"ISO 8859-13 (Baltic Rim)", "ISO 8859-13"},
    {"ISO 8859-14 (Celtic)", "ISO 8859-14"},
    {"ISO 8859-15 (Latin-9)", "ISO 8859-15"},
    {"ISO 8859-16 (South-Eastern European)", "ISO 8859-16"},
    {"Windows-1250 (Central European)", "Windows-1250"},
    {"Windows-1251 (Cyrillic)", "Windows-1251"},
    {"Windows-1252 (Western European, ANSI)", "Windows-1252"},
    {"Windows-1253 (Greek)", "Windows-1253"},
    {"Windows-1254 (Turkish)", "Windows-1254"},
    {"Windows-1255 (Hebrew)", "Windows-1255"},
    {"Windows-1256 (Arabic)", "Windows-1256"},
    {"Windows-1257 (Baltic)", "Windows-1257"},
    {"Windows-1258 (Vietnamese)", "Windows-1258"},
    {"Windows-949 (Korean)", "CP949"},
    {"EUC-KR (Korean)", "EUC_KR"},
    {"EUC-JP (Japanese)", "EUC_JP"},
    {"ISO 2022-JP (Japanese)", "ISO 2022-JP"},
    {"Shift-JIS (Japanese)", "Shift-JIS"},
    {"Big5-HKSCS (Chinese)", "Big5-HKSCS"},
    {"Big5 (Chinese)", "Big5"},
    {"GB 18030 (Chinese)", "GB 18030"},
    {"KOI8-U (Ukrainian)", "KOI8-U"},
    {"KOI8-R (Russian)", "KOI8-R"},
    {"", ""},
}};

// The first key that occurs wins, so a key stands behind every longer key that contains it.
constexpr Utilities::Keyword<EncodingType> EncodingKeys[] = {
    {"utf8", EncodingType::Utf8},
    {"utf16be", EncodingType::Utf16BE},
    {"utf16le", EncodingType::Utf16LE},
    {"utf16", EncodingType::Utf16},
    {"utf32le", EncodingType::Utf32LE},
    {"utf32be", EncodingType::Utf32BE},
    {"utf32", EncodingType::Utf32},
    {"iso88592", EncodingType::Iso8859_2},
    {"iso88593", EncodingType::Iso8859_3},
    {"iso88594", EncodingType::Iso8859_4},
    {"iso88595", EncodingType::Iso8859_5},
    {"iso88596", EncodingType::Iso8859_6},
    {"iso88597", EncodingType::Iso8859_7},
    {"iso88598", EncodingType::Iso8859_8},
    {"iso88599", EncodingType::Iso8859_9},
    {"iso885910", EncodingType::Iso8859_10},
    {"iso885913", EncodingType::Iso8859_13},
    {"iso885914", EncodingType::Iso8859_14},
    {"iso885915", EncodingType::Iso8859_15},
    {"iso885916", EncodingType::Iso8859_16},
    {"iso88591", EncodingType::Iso8859_1},
    {"windows1250", EncodingType::Windows1250},
    {"windows1251", EncodingType::Windows1251},
    {"windows1252", EncodingType::Windows1252},
    {"windows1253", EncodingType::Windows1253},
    {"windows1254", EncodingType::Windows1254},
    {"windows1255", EncodingType::Windows1255},
    {"windows1256", EncodingType::Windows1256},
    {"windows1257", EncodingType::Windows1257},
    {"windows1258", EncodingType::Windows1258},
    {"windows949", EncodingType::Windows949},
    {"euckr", EncodingType::EucKr},
    {"eucjp", EncodingType::EucJp},
    {"iso2022jp", EncodingType::Iso2022Jp},
    {"shiftjis", EncodingType::ShiftJis},
    {"big5hkscs", EncodingType::Big5Hkscs},
    {"big5", EncodingType::Big5},
    {"gb18030", EncodingType::Gb18030},
    {"koi8u", EncodingType::Koi8U},
    {"koi8r", EncodingType::Koi8R},
};

Encoding const& encodingRow(EncodingType encoding) {
    auto const index = static_cast<std::size_t>(encoding);
    return index < Encodings.size() ? Encodings[index] : Encodings.back();
}

/// Whether more code units of `width` bytes have zeros in their first half than in their second.
bool looksBigEndian(QByteArray const& sample, int width) {
    int const half = width / 2;
    auto const isZero = [&](qsizetype position) {
        return std::string_view(sample.constData() + position, half) == std::string_view("\0\0", half);
    };
    int leading = 0;
    int trailing = 0;
    for (qsizetype unit = 0; unit + width <= sample.size(); unit += width) {
        leading += isZero(unit);
        trailing += isZero(unit + half);
    }
    return leading > trailing;
}

} // namespace

int Utilities::numBytesPerChar(EncodingType encoding) {
    return encodingRow(encoding).bytesPerChar;
}

Endianness Utilities::getEndianness(EncodingType encoding) {
    return encodingRow(encoding).endianness;
}

std::vector<char> Utilities::getEncodingBom(EncodingType encoding) {
    std::string_view const bom = encodingRow(encoding).bom;
    return {bom.begin(), bom.end()};
}

QString Utilities::convertEncodingTypeToString(EncodingType encoding) {
    return QString::fromLatin1(encodingRow(encoding).displayName);
}

QByteArray Utilities::convertEncodingTypeToCodecName(EncodingType encoding) {
    return encodingRow(encoding).codecName;
}

EncodingType Utilities::convertEncodingStringToType(QString const& text) {
    return matchKeyword<EncodingType>(text, EncodingKeys, EncodingType::Invalid);
}

bool Utilities::encodingValid(QString const& text) {
    return convertEncodingStringToType(text) != EncodingType::Invalid;
}

QStringList Utilities::getEncodingStringList() {
    QStringList names;
    for (auto encoding : {EncodingType::Utf8, EncodingType::Utf16, EncodingType::Utf16BE, EncodingType::Utf16LE,
                          EncodingType::Utf32, EncodingType::Utf32LE, EncodingType::Utf32BE})
        names << convertEncodingTypeToString(encoding);
    for (int value = int(EncodingType::Iso8859_1); value < int(EncodingType::Invalid); ++value)
        names << convertEncodingTypeToString(EncodingType(value));
    names.swapItemsAt(names.indexOf(convertEncodingTypeToString(EncodingType::Big5)),
                      names.indexOf(convertEncodingTypeToString(EncodingType::Big5Hkscs)));
    return names;
}

EncodingType Utilities::guessEncodingFromFile(EncodingType encoding, QString const& path) {
    if (encoding != EncodingType::Utf16 && encoding != EncodingType::Utf32)
        return encoding;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return encoding;
    qint64 const sampleSize = qMin<qint64>(file.size(), 1000) / 4 * 4;
    bool const bigEndian = looksBigEndian(file.read(sampleSize), numBytesPerChar(encoding));
    if (encoding == EncodingType::Utf16)
        return bigEndian ? EncodingType::Utf16GuessedBE : EncodingType::Utf16GuessedLE;
    return bigEndian ? EncodingType::Utf32GuessedBE : EncodingType::Utf32GuessedLE;
}

EncodingType Utilities::getEncodingFromMark(QString const& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return EncodingType::Invalid;
    return getEncodingOfMark(file.read(4).toStdString());
}

// The mark of UTF-32LE begins with that of UTF-16LE.
EncodingType Utilities::getEncodingOfMark(std::string_view startOfFile) {
    for (auto const& [encoding, guessed] : {std::pair(EncodingType::Utf32LE, EncodingType::Utf32GuessedLE),
                                            std::pair(EncodingType::Utf32BE, EncodingType::Utf32GuessedBE),
                                            std::pair(EncodingType::Utf16LE, EncodingType::Utf16GuessedLE),
                                            std::pair(EncodingType::Utf16BE, EncodingType::Utf16GuessedBE)}) {
        std::vector<char> const mark = getEncodingBom(encoding);
        if (startOfFile.starts_with(std::string_view(mark.data(), mark.size())))
            return guessed;
    }
    return EncodingType::Invalid;
}

bool Utilities::contradictsMark(EncodingType encoding, EncodingType marked) {
    bool const isOpen = encoding == EncodingType::Utf16 || encoding == EncodingType::Utf32; // as to the byte order
    return marked != EncodingType::Invalid && getEncodingBom(encoding) != getEncodingBom(marked) &&
           !(isOpen && numBytesPerChar(encoding) == numBytesPerChar(marked));
}
