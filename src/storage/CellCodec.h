#pragma once

#include "core/Enumerations.h"
#include "storage/LegacyCodec.h"

#include <QString>

#include <string_view>
#include <vector>

/// Turns the bytes of a cell into text and text into the bytes of a cell, in one encoding. A cell is complete in
/// itself: no state is carried from one to the next, and there is no byte order mark in a cell, so U+FEFF is an
/// ordinary character and UTF-16 and UTF-32 of unknown byte order are little-endian. Bytes that mean nothing in the
/// encoding read as the replacement character, characters that the encoding lacks are written as question marks.
class CellCodec {
public:
    explicit CellCodec(EncodingType encoding = EncodingType::Utf8);

    /// A null text for no bytes.
    QString decode(std::string_view bytes) const;
    /// With `loses` tells whether the encoding lacks characters of the text.
    std::vector<char> encode(QString const& text, bool* loses = nullptr) const;
    /// Whether the bytes are any text, without making it where that can be told from less.
    bool hasText(std::string_view bytes) const;
    /// Whether hasText asks for no more than that there are bytes.
    bool anyByteIsText() const { return encoding != EncodingType::Iso2022Jp; }
    /// Whether a cell of nothing but bytes below 128 is the same text as in ASCII, and is written so.
    bool keepsAscii() const { return asciiStays; }

private:
    bool findWhetherAsciiStays() const;
    QString carriedPart(QString const& text) const;

    EncodingType encoding;
    LegacyCodec legacy; ///< not there for UTF-8 and Latin-1, which Qt converts faster without
    bool asciiStays = false;
};
