#include "storage/CellConversion.h"

#include <algorithm>

CellConversion::CellConversion(EncodingType from, EncodingType to)
    : present(from), next(to), asciiStays(present.keepsAscii() && next.keepsAscii()) {}

bool CellConversion::keeps(std::string_view bytes) const {
    return bytes.empty() ||
           (asciiStays && std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; }));
}

bool CellConversion::changesBytes(std::string_view bytes) const {
    if (keeps(bytes))
        return false;
    Bytes const there = convert(bytes);
    Bytes const back = present.encode(next.decode({there.data(), there.size()}));
    return !std::equal(back.begin(), back.end(), bytes.begin(), bytes.end());
}

// The bytes alone do not tell: several encodings write one text in more than one way.
bool CellConversion::losesText(std::string_view bytes) const {
    if (keeps(bytes))
        return false;
    QString const text = present.decode(bytes);
    bool loses = false;
    next.encode(text, &loses);
    return loses || (text.contains(QChar(QChar::ReplacementCharacter)) && changesBytes(bytes));
}
