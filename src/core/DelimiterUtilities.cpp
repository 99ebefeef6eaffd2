#include "core/DelimiterUtilities.h"

#include <QFile>
#include <QHash>
#include <QList>

#include <algorithm>
#include <span>
#include <string_view>

namespace {

struct Word {
    char const* actual;
    char const* readable;
};

constexpr Word ShortWords[] = {{" ", "space"}, {"\t", "tab"}, {"\x1F", "Unit Separator"}, {"", "(none)"}};

constexpr Word OtherSpellings[] = {{"\t", "\\t"}, {" ", "\\s"}, {"", "none"}};

constexpr Word LongWords[] = {
    {",", "comma (,)"},  {";", "semi-colon (;)"}, {"|", "pipe (|)"},          {":", "colon (:)"},
    {".", "period (.)"}, {"-", "dash (-)"},       {"/", "forward slash (/)"}, {"\\", "back slash (\\)"},
};

struct DefaultExtension {
    char const* extension;
    char const* delimiter;
};

// From delimiter to extension the first row counts.
constexpr DefaultExtension DefaultExtensions[] = {
    {"csv", ","}, {"tsv", "\t"}, {"tab", "\t"}, {"dsv", ";"}, {"psv", "|"}};

/// The number of lines that share the most common positive count of `delimiter`; 0 if it does not occur.
qsizetype numLinesThatAgree(QList<QByteArray> const& lines, char delimiter) {
    QHash<qsizetype, qsizetype> numLinesByCount;
    qsizetype best = 0;
    for (QByteArray const& line : lines) {
        qsizetype const count = line.count(delimiter);
        if (count > 0)
            best = std::max(best, ++numLinesByCount[count]);
    }
    return best;
}

} // namespace

bool Utilities::delimiterValid(QString text) {
    if (text.size() > 1)
        text = text.trimmed();
    return !text.isEmpty();
}

void Utilities::convertDelimiterFromShortReadableToActual(QString& actual, QString const& readable) {
    auto const is = [&](char const* word) { return readable.compare(QLatin1String(word), Qt::CaseInsensitive) == 0; };
    if (is("(auto)"))
        return;
    for (auto const& words : {std::span<Word const>(ShortWords), std::span<Word const>(OtherSpellings)}) {
        for (Word const& word : words) {
            if (is(word.readable)) {
                actual = QLatin1String(word.actual);
                return;
            }
        }
    }
    actual = readable;
}

QString Utilities::convertDelimiterFromActualToShortReadable(QString const& actual) {
    for (Word const& word : ShortWords) {
        if (actual == QLatin1String(word.actual))
            return QLatin1String(word.readable);
    }
    return actual;
}

QString Utilities::convertDelimiterFromActualToLongReadable(QString const& actual) {
    for (Word const& word : LongWords) {
        if (actual == QLatin1String(word.actual))
            return QLatin1String(word.readable);
    }
    return convertDelimiterFromActualToShortReadable(actual);
}

QString Utilities::getDelimiterName(QString const& delimiter) {
    for (Word const& word : LongWords) {
        if (delimiter == QLatin1String(word.actual))
            return QString::fromLatin1(word.readable).section(QStringLiteral(" ("), 0, 0);
    }
    return {};
}

QStringList Utilities::getDelimiterOptions(bool withAuto) {
    QStringList options = {",", "tab", ";", "|", "space", "Unit Separator", "(none)"};
    if (withAuto)
        options.prepend("(auto)");
    return options;
}

QString Utilities::getDefaultDelimiterFromExtension(QString const& extension) {
    for (auto const& row : DefaultExtensions) {
        if (extension == QLatin1String(row.extension))
            return QLatin1String(row.delimiter);
    }
    return ",";
}

QString Utilities::getDefaultExtensionFromDelimiter(QString const& delimiter) {
    for (auto const& row : DefaultExtensions) {
        if (delimiter == QLatin1String(row.delimiter))
            return QLatin1String(row.extension);
    }
    return "txt";
}

QString Utilities::getDelimiterFromAutoDetect(QString const& path) {
    constexpr std::string_view Candidates = ",\t|;^\x1F";
    QByteArray sample;
    if (QFile file(path); !path.isEmpty() && file.open(QIODevice::ReadOnly))
        sample = file.read(10000);
    char best = Candidates.front();
    qsizetype bestCount = 0;
    for (char candidate : Candidates) {
        qsizetype const count = sample.count(candidate);
        if (count > bestCount) {
            best = candidate;
            bestCount = count;
        }
    }
    return QChar::fromLatin1(best);
}

QString Utilities::detectDelimiterInByteArray(QByteArray const& text) {
    QList<QByteArray> lines = text.split('\n');
    for (QByteArray& line : lines)
        line = line.trimmed();
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    char best = '\t';
    qsizetype bestScore = 0;
    for (char candidate : std::string_view("\t,;|")) {
        qsizetype const score = numLinesThatAgree(lines, candidate);
        if (score * 2 >= lines.size() && score > bestScore) {
            best = candidate;
            bestScore = score;
        }
    }
    return QChar::fromLatin1(best);
}
