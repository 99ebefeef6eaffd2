#pragma once

#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class QTextCodec;

/// Follows the shifts of ISO 2022-JP (RFC 1468, and half-width katakana, which many programs write) through the bytes
/// of a file or a cell, from the ASCII state on. A line end leads back to one byte a character.
class Iso2022JpState {
public:
    enum class Set : std::uint8_t { Ascii, Roman, Katakana, TwoBytes };
    enum class Role : std::uint8_t {
        Plain,     ///< the ASCII character that it looks like
        Character, ///< of another set, or a part of one
        Escape,    ///< of a shift
    };

    Role take(char byte);
    Set set() const { return current; }
    bool isInEscape() const { return escape != 0; }
    /// Whether bytes are single characters here, nearly all of them those of ASCII.
    bool isLatin() const { return !isInEscape() && (current == Set::Ascii || current == Set::Roman); }
    bool isAscii() const { return !isInEscape() && current == Set::Ascii; }

private:
    Set current = Set::Ascii;
    std::uint8_t escape = 0; ///< bytes of a shift that have come: ESC, and one more, which `dollar` tells
    bool dollar = false;
};

/// For a scanner that takes a file in windows: which bytes can be delimiters, quotes and line ends.
class Iso2022JpShifts {
public:
    static constexpr bool areThere = true;

    /// A mask of the bytes of the window, 64 at most, that are what they look like, and of those that begin a shift out
    /// of ASCII, for a delimiter can be of another set.
    std::uint64_t structure(char const* window, std::ptrdiff_t bytes);
    /// The next window starts so many bytes behind the start of the last one. What lies beyond that one's end belongs
    /// to a delimiter or line end, which leaves the state as it found it.
    void moveOn(std::ptrdiff_t bytes) {
        state = states[static_cast<std::size_t>(std::min(bytes, walked))];
        if (bytes > walked && !state.isLatin())
            state = {};
    }
    /// Whether the last byte of the last window is what it looks like.
    bool endsPlain() const { return lastIsPlain; }

private:
    Iso2022JpState state;
    std::array<Iso2022JpState, 65> states; ///< before each byte of the last window, and behind it
    std::ptrdiff_t walked = 0;
    bool lastIsPlain = true;
};

/// The scanner's rule for encodings without shifts.
struct NoShifts {
    static constexpr bool areThere = false;
    static constexpr std::uint64_t structure(char const*, std::ptrdiff_t) { return ~std::uint64_t(0); }
    static constexpr void moveOn(std::ptrdiff_t) {}
    static constexpr bool endsPlain() { return true; }
};

namespace Iso2022Jp {

/// Where `sequence` stands in a cell as structure of a file would, from the ASCII state on; npos if nowhere.
std::size_t findStructure(std::string_view cell, std::string_view sequence);
/// The shift that has to follow the cell so that it ends in the ASCII state; empty if it does.
std::string_view closing(std::string_view cell);
/// The text of a cell; `codec` is Qt's, which reads the characters of two bytes.
QString decode(std::string_view cell, QTextCodec const& codec);

} // namespace Iso2022Jp
