#include "core/LineEndings.h"

#include "core/EncodingUtilities.h"

#include <QFile>
#include <QStringList>

#include <utility>

namespace {

constexpr qint64 sampleBytes = 0x800000;

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

LineEndings LineEndings::in(std::string_view bytes, EncodingType encoding, ParsingStandard standard,
                            QString const& delimiter, bool isEnd) {
    auto const width = Utilities::numBytesPerChar(encoding);
    auto const step = static_cast<std::size_t>(width);
    bool const bigEndian = Utilities::getEndianness(encoding) == Endianness::Big;
    bool const quotes = standard != ParsingStandard::DelimiterOnly && !delimiter.isEmpty();
    unsigned const delimiterEnd = delimiter.isEmpty() ? 0 : delimiter.back().unicode();
    LineEndings endings;
    bool quoted = false;
    bool opensHere = true;    // a quote would open a cell, or go on with one in which it is doubled
    bool shifted = false;     // in a set of ISO 2022-JP whose characters look like others
    bool afterReturn = false; // which may be half of a break
    for (std::size_t at = 0; at + step <= bytes.size(); at += step) {
        unsigned const unit = width == 1 ? static_cast<unsigned char>(bytes[at]) : unitAt(&bytes[at], width, bigEndian);
        bool const isBreak = unit == '\r' || unit == '\n' || (unit == 0x1e && width == 1);
        endings.windows += afterReturn && unit == '\n' ? 1 : 0;
        endings.carriageReturn += afterReturn && unit != '\n' ? 1 : 0;
        endings.lineFeed += !quoted && unit == '\n' && !afterReturn ? 1 : 0;
        endings.recordSeparators += !quoted && unit == 0x1e && width == 1 ? 1 : 0;
        afterReturn = !quoted && unit == '\r';
        if (unit == 0x1b && encoding == EncodingType::Iso2022Jp) {
            std::string_view const escape = bytes.substr(at + 1, 2);
            shifted = escape.starts_with('$') || escape == "(I";
        }
        bool const isQuote = quotes && !shifted && unit == '"';
        bool const wasQuoted = quoted;
        quoted = quoted != (isQuote && (quoted || opensHere));
        bool const closes = isQuote && wasQuoted;
        opensHere = !quoted && (isBreak || unit == delimiterEnd || closes);
    }
    endings.carriageReturn += afterReturn && isEnd ? 1 : 0;
    return endings;
}

LineEndings LineEndings::ofFile(QString const& path, EncodingType encoding, ParsingStandard standard,
                                QString const& delimiter) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray const sample = file.read(sampleBytes);
    return in({sample.constData(), static_cast<std::size_t>(sample.size())}, encoding, standard, delimiter,
              file.atEnd());
}
