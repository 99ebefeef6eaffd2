#include "storage/CellCodec.h"

#include "core/EncodingUtilities.h"

#include <QByteArray>
#include <QByteArrayView>

#include <algorithm>

namespace {

QString decodeUtf8(std::string_view bytes) {
    using namespace std::string_view_literals;
    // QString::fromUtf8 would take one U+FEFF at the start for a mark and drop it.
    static constexpr auto mark = "\xEF\xBB\xBF"sv;
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (bytes.starts_with(mark))
        text.prepend(QChar::ByteOrderMark);
    return text;
}

QString fromLatin1(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
}

/// Whether all characters are below `end`.
bool isBelow(QString const& text, char16_t end) {
    return std::all_of(text.begin(), text.end(), [end](QChar character) { return character.unicode() < end; });
}

std::vector<char> toCell(QByteArrayView bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string_view viewOf(QByteArray const& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

CellCodec::CellCodec(EncodingType encoding)
    : encoding(encoding), legacy(encoding), asciiStays(!legacy.isThere() || findWhetherAsciiStays()) {}

QString CellCodec::decode(std::string_view bytes) const {
    if (bytes.empty())
        return {};
    if (!legacy.isThere())
        return encoding == EncodingType::Iso8859_1 ? fromLatin1(bytes) : decodeUtf8(bytes);
    return asciiStays && isAscii(bytes) ? fromLatin1(bytes) : legacy.decode(bytes);
}

// Nothing but shifts is no text.
bool CellCodec::hasText(std::string_view bytes) const {
    return !bytes.empty() && (anyByteIsText() || !decode(bytes).isEmpty());
}

std::vector<char> CellCodec::encode(QString const& text, bool* loses) const {
    bool lost = false;
    bool& loss = loses ? *loses : lost;
    loss = false;
    if (text.isEmpty())
        return {};
    bool const isUnicode = encoding == EncodingType::Utf8 || Utilities::numBytesPerChar(encoding) > 1;
    if (isUnicode && text.isValidUtf16())
        return toCell(legacy.isThere() ? legacy.encode(text) : text.toUtf8());
    if (encoding == EncodingType::Utf8) {
        loss = true;
        return toCell(text.toUtf8());
    }
    if (!legacy.isThere() || (asciiStays && isBelow(text, 0x80))) {
        loss = !isBelow(text, 0x100);
        return toCell((loss ? carriedPart(text) : text).toLatin1());
    }
    QByteArray const bytes = legacy.encode(text);
    loss = legacy.decode(viewOf(bytes)) != text;
    return toCell(loss ? legacy.encode(carriedPart(text)) : bytes);
}

/// The text with a question mark for each character that the encoding lacks.
QString CellCodec::carriedPart(QString const& text) const {
    bool const isCarried = legacy.isThere() ? legacy.decode(viewOf(legacy.encode(text))) == text : isBelow(text, 0x100);
    if (isCarried)
        return text;
    qsizetype middle = text.size() / 2;
    if (middle > 0 && text.at(middle).isLowSurrogate() && text.at(middle - 1).isHighSurrogate())
        ++middle;
    if (middle == 0 || middle == text.size())
        return QStringLiteral("?");
    return carriedPart(text.left(middle)) + carriedPart(text.mid(middle));
}

bool CellCodec::findWhetherAsciiStays() const {
    QByteArray probe;
    for (int byte = 1; byte < 128; ++byte)
        probe += static_cast<char>(byte);
    probe += "\x1B$B0!"; // a shift to other characters in sets that have one
    QString const text = QString::fromLatin1(probe);
    return legacy.decode(viewOf(probe)) == text && legacy.encode(text) == probe;
}
