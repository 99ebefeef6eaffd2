#pragma once

#include "core/EncodingUtilities.h"
#include "storage/EditableDataContainer.h"

#include <string>
#include <vector>

/// ASCII text in the code units of an encoding.
inline std::string spelled(std::string const& text, EncodingType encoding) {
    auto const width = Utilities::numBytesPerChar(encoding);
    bool const highFirst = encoding == EncodingType::Utf16BE || encoding == EncodingType::Utf32GuessedBE;
    std::string result;
    for (char const c : text) {
        std::string unit(width, '\0');
        unit[highFirst ? width - 1 : 0] = c;
        result += unit;
    }
    return result;
}

/// A container that is filled without a file.
class FilledContainer : public EditableDataContainer {
public:
    using Table = std::vector<std::vector<std::string>>;

    /// Of ASCII texts.
    void fill(Table const& table) {
        for (int row = 0; row < std::ssize(table); ++row)
            for (int col = 0; col < std::ssize(table[row]); ++col)
                set(row, col, spelled(table[row][col], encoding));
    }
    void set(int row, int col, std::string const& bytes) { setValue(row, col, {bytes.begin(), bytes.end()}); }
    void setMark(std::string const& mark) {
        hasBom = true;
        bom.assign(mark.begin(), mark.end());
    }
};
