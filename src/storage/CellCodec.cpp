#include "storage/CellCodec.h"

#include "core/EncodingUtilities.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QTextCodec>

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

QString decodeUtf8(std::string_view bytes) {
    using namespace std::string_view_literals;
    // QString::fromUtf8 would take one U+FEFF at the start for a mark and drop it.
    static constexpr auto mark = "\xEF\xBB\xBF"sv;
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (bytes.starts_with(mark))
        text.prepend(QChar::ByteOrderMark);
    return text;
}

std::vector<char> toCell(QByteArrayView bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace

CellCodec::CellCodec(EncodingType encoding) : encoding(encoding), codec(findCodec(encoding)) {}

QString CellCodec::decode(std::string_view bytes) const {
    if (bytes.empty())
        return {};
    if (codec) {
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        return codec->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    }
    if (encoding == EncodingType::Iso8859_1)
        return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return decodeUtf8(bytes);
}

// Without a codec each byte counts. A codec may swallow bytes.
bool CellCodec::hasText(std::string_view bytes) const {
    return !bytes.empty() && (codec == nullptr || !decode(bytes).isEmpty());
}

std::vector<char> CellCodec::encode(QString const& text) const {
    if (text.isEmpty())
        return {};
    if (!codec)
        return toCell(encoding == EncodingType::Iso8859_1 ? text.toLatin1() : text.toUtf8());
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    if (encoding != EncodingType::Iso2022Jp)
        return toCell(codec->fromUnicode(text.constData(), static_cast<int>(text.size()), &state));
    // The codec leaves the text in the character set of its last character, and the delimiter behind the cell would
    // be read in that. One ASCII character more makes it return; that one byte is cut off again.
    QString const closed = text + QLatin1Char(' ');
    QByteArray const bytes = codec->fromUnicode(closed.constData(), static_cast<int>(closed.size()), &state);
    return toCell(QByteArrayView(bytes).chopped(1));
}

bool CellCodec::keepsAscii() const {
    QByteArray probe;
    for (int byte = 1; byte < 128; ++byte)
        probe += static_cast<char>(byte);
    probe += "\x1B$B0!"; // a shift to other characters in sets that have one
    QString const text = QString::fromLatin1(probe);
    return decode({probe.data(), static_cast<std::size_t>(probe.size())}) == text && encode(text) == toCell(probe);
}
