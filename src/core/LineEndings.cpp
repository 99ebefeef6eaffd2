#include "core/LineEndings.h"

#include "core/EncodingUtilities.h"

#include <QFile>
#include <QStringList>

#include <utility>

namespace {

constexpr qint64 sampleBytes = 0x10000;

/// A code unit of one, two or four bytes.
unsigned unitAt(char const* at, int width, bool bigEndian) {
    unsigned unit = 0;
    for (int i = 0; i < width; ++i) {
        int const byte = bigEndian ? i : width - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(at[byte]);
    }
    return unit;
}

LineEndingType kindOf(LineEndingType type) {
    return type == LineEndingType::Windows || type == LineEndingType::RecordSeparator ? type : LineEndingType::Unix;
}

} // namespace

bool LineEndings::areAll(LineEndingType type) const {
    LineEndings others = *this;
    switch (kindOf(type)) {
    case LineEndingType::Windows: others.windows = 0; break;
    case LineEndingType::RecordSeparator: others.recordSeparators = 0; break;
    default: others.lineFeed = 0; break;
    }
    return !others.any();
}

LineEndingType LineEndings::prevailing() const {
    if (windows + lineFeed + recordSeparators == 0)
        return LineEndingType::Invalid;
    if (windows >= lineFeed && windows >= recordSeparators)
        return LineEndingType::Windows;
    return lineFeed >= recordSeparators ? LineEndingType::Unix : LineEndingType::RecordSeparator;
}

QString LineEndings::names() const {
    QStringList names;
    for (auto const& [count, name] : {std::pair(windows, "CRLF"), std::pair(lineFeed, "LF"),
                                      std::pair(carriageReturn, "CR"), std::pair(recordSeparators, "RS")})
        if (count > 0)
            names.append(QLatin1String(name));
    return names.join(QStringLiteral(" and "));
}

LineEndings LineEndings::of(LineEndingType type) {
    LineEndings endings;
    switch (kindOf(type)) {
    case LineEndingType::Windows: endings.windows = 1; break;
    case LineEndingType::RecordSeparator: endings.recordSeparators = 1; break;
    default: endings.lineFeed = 1; break;
    }
    return endings;
}

LineEndings LineEndings::in(std::string_view bytes, EncodingType encoding, ParsingStandard standard) {
    auto const width = Utilities::numBytesPerChar(encoding);
    auto const step = static_cast<std::size_t>(width);
    bool const bigEndian = Utilities::getEndianness(encoding) == Endianness::Big;
    LineEndings endings;
    bool quoted = false;
    bool afterReturn = false;
    for (std::size_t at = 0; at + step <= bytes.size(); at += step) {
        unsigned const unit = unitAt(bytes.data() + at, width, bigEndian);
        if (afterReturn && unit == '\n') {
            ++endings.windows;
            afterReturn = false;
            continue;
        }
        endings.carriageReturn += afterReturn ? 1 : 0;
        quoted = quoted != (unit == '"' && standard != ParsingStandard::DelimiterOnly);
        afterReturn = !quoted && unit == '\r';
        endings.lineFeed += !quoted && unit == '\n' ? 1 : 0;
        endings.recordSeparators += !quoted && width == 1 && unit == 0x1e ? 1 : 0;
    }
    return endings;
}

LineEndings LineEndings::ofFile(QString const& path, EncodingType encoding, ParsingStandard standard) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray const sample = file.read(sampleBytes);
    return in({sample.constData(), static_cast<std::size_t>(sample.size())}, encoding, standard);
}
