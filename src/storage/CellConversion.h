#pragma once

#include "storage/CellCodec.h"

#include <string_view>
#include <vector>

/// The way of cells from one encoding into another.
class CellConversion {
public:
    using Bytes = std::vector<char>;

    CellConversion(EncodingType from, EncodingType to);

    /// Whether the cell is the same bytes in both encodings, as far as can be told without its text. Most cells of most
    /// tables are ASCII.
    bool keeps(std::string_view bytes) const;
    Bytes convert(std::string_view bytes) const { return next.encode(present.decode(bytes)); }
    /// Whether the way to the new encoding and back would bring other bytes.
    bool changesBytes(std::string_view bytes) const;
    /// Whether the new encoding cannot carry all that the cell holds: characters that it lacks, or bytes that have no
    /// meaning in the old one.
    bool losesText(std::string_view bytes) const;

private:
    CellCodec present;
    CellCodec next;
    bool asciiStays;
};
