#pragma once

#include <QLatin1String>
#include <QString>

#include <span>

namespace Utilities {

/// A key that free text may hold, and what it stands for.
template <class Value>
struct Keyword {
    char const* key;
    Value value;
};

/// Free text in the form that keywords are written in: lower case, without blanks, "-" and "_".
inline QString normalizedForKeywords(QString const& text) {
    return text.toLower().remove(QLatin1Char(' ')).remove(QLatin1Char('-')).remove(QLatin1Char('_'));
}

/// The value of the first keyword, in the order of the table, that occurs anywhere in the normalized text.
template <class Value>
Value matchKeyword(QString const& text, std::span<Keyword<Value> const> keywords, Value otherwise) {
    QString const normalized = normalizedForKeywords(text);
    for (auto const& [key, value] : keywords) {
        if (normalized.contains(QLatin1String(key)))
            return value;
    }
    return otherwise;
}

} // namespace Utilities
