#include "storage/LegacyCodec.h"

#include "core/EncodingUtilities.h"
#include "storage/Iso2022Jp.h"

#include <QHash>
#include <QTextCodec>

#include <algorithm>
#include <utility>

namespace {

QTextCodec* findCodec(EncodingType encoding) {
    switch (encoding) {
    case EncodingType::Utf8:
    case EncodingType::Iso8859_1: return nullptr;
    // The codecs of unknown byte order follow the machine, the program's bytes do not.
    case EncodingType::Utf16: return findCodec(EncodingType::Utf16LE);
    case EncodingType::Utf32: return findCodec(EncodingType::Utf32LE);
    default: return QTextCodec::codecForName(Utilities::convertEncodingTypeToCodecName(encoding));
    }
}

QString toText(QTextCodec const& codec, std::string_view bytes) {
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
}

QByteArray toBytes(QTextCodec const& codec, QString const& text) {
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return codec.fromUnicode(text.constData(), static_cast<int>(text.size()), &state);
}

bool isHigh(char byte) {
    return (byte & 0x80) != 0;
}

/// Whether characters have different numbers of bytes, of which the first is not ASCII.
bool hasLeadBytes(EncodingType encoding) {
    switch (encoding) {
    case EncodingType::Windows949:
    case EncodingType::EucKr:
    case EncodingType::EucJp:
    case EncodingType::ShiftJis:
    case EncodingType::Big5Hkscs:
    case EncodingType::Big5:
    case EncodingType::Gb18030: return true;
    default: return false;
    }
}

// The codec waits for the rest of a character that the end of the cell cuts off. A line end, which is a part of none,
// makes it give up.
QString toTextWithEnd(QTextCodec const& codec, std::string_view bytes) {
    constexpr std::size_t longestRest = 3;
    std::string_view const tail = bytes.substr(bytes.size() - std::min(bytes.size(), longestRest));
    if (std::none_of(tail.begin(), tail.end(), isHigh))
        return toText(codec, bytes);
    std::string ended(bytes);
    ended += '\n';
    QString text = toText(codec, ended);
    text.chop(1);
    return text;
}

/// The codec has three control characters of Shift-JIS change places, as on the mainframes where its table comes from.
struct ControlOfShiftJis {
    char16_t character;
    char16_t codecCharacter; ///< that of the codec for the same byte
};

constexpr ControlOfShiftJis ControlsOfShiftJis[] = {{0x1A, 0x1C}, {0x1C, 0x7F}, {0x7F, 0x1A}};

QString withControlsOfShiftJis(QString text, char16_t ControlOfShiftJis::*from, char16_t ControlOfShiftJis::*to) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        for (ControlOfShiftJis const& control : ControlsOfShiftJis) {
            if (std::as_const(text)[i] == QChar(control.*from)) {
                text[i] = QChar(control.*to);
                break;
            }
        }
    }
    return text;
}

constexpr char FirstOfThree = '\x8F';

/// For EUC-JP the codec takes 374 characters from rows of a vendor, which other programs do not read. Those of them
/// that JIS X 0212 has too are written as there: bytes of the codec, and the three of JIS X 0212.
QHash<QByteArray, QByteArray> const& jisX0212InsteadOfVendorRows(QTextCodec const& codec) {
    static QHash<QByteArray, QByteArray> const table = [&codec] {
        constexpr int first = 0xA1;
        constexpr int lastRow = 0xED;
        constexpr int lastColumn = 0xFE;
        QHash<QByteArray, QByteArray> found;
        for (int row = first; row <= lastRow; ++row) {
            for (int column = first; column <= lastColumn; ++column) {
                QByteArray bytes(1, FirstOfThree);
                bytes.append(static_cast<char>(row)).append(static_cast<char>(column));
                QString const text = codec.toUnicode(bytes);
                if (text != QString(QChar::ReplacementCharacter))
                    found.insert(toBytes(codec, text), bytes);
            }
        }
        return found;
    }();
    return table;
}

QByteArray toEucJp(QTextCodec const& codec, QString const& text) {
    constexpr unsigned char FirstVendorRow = 0xF5;
    QByteArray const bytes = toBytes(codec, text);
    QByteArray result;
    for (qsizetype at = 0; at < bytes.size();) {
        qsizetype const length = !isHigh(bytes[at]) ? 1 : bytes[at] == FirstOfThree ? 3 : 2;
        QByteArray const character = bytes.mid(at, length);
        bool const isVendors = static_cast<unsigned char>(bytes[at]) >= FirstVendorRow;
        result += isVendors ? jisX0212InsteadOfVendorRows(codec).value(character, "?") : character;
        at += length;
    }
    return result;
}

} // namespace

LegacyCodec::LegacyCodec(EncodingType encoding) : encoding(encoding), codec(findCodec(encoding)) {}

QString LegacyCodec::decode(std::string_view bytes) const {
    if (encoding == EncodingType::Iso2022Jp)
        return Iso2022Jp::decode(bytes, *codec);
    if (encoding == EncodingType::ShiftJis)
        return withControlsOfShiftJis(toTextWithEnd(*codec, bytes), &ControlOfShiftJis::codecCharacter,
                                      &ControlOfShiftJis::character);
    if (hasLeadBytes(encoding))
        return toTextWithEnd(*codec, bytes);
    auto const width = static_cast<std::size_t>(Utilities::numBytesPerChar(encoding));
    std::size_t const partOfUnit = bytes.size() % width;
    QString text = toText(*codec, bytes.substr(0, bytes.size() - partOfUnit));
    if (partOfUnit)
        text += QChar::ReplacementCharacter;
    return text;
}

QByteArray LegacyCodec::encode(QString const& text) const {
    switch (encoding) {
    case EncodingType::EucJp: return toEucJp(*codec, text);
    case EncodingType::ShiftJis:
        return toBytes(*codec,
                       withControlsOfShiftJis(text, &ControlOfShiftJis::character, &ControlOfShiftJis::codecCharacter));
    case EncodingType::Iso2022Jp: {
        QByteArray bytes = toBytes(*codec, text);
        std::string_view const closing = Iso2022Jp::closing({bytes.data(), static_cast<std::size_t>(bytes.size())});
        return bytes.append(closing.data(), static_cast<qsizetype>(closing.size()));
    }
    default: return toBytes(*codec, text);
    }
}
