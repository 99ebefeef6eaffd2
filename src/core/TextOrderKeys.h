#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The keys of a sort, each looked at once: what decides between two texts is kept as numbers and bytes that compare
/// fast. The order of two texts, in turn of precedence, is
/// - empty texts last, first in a descending order;
/// - if either, blanks at its start aside, begins with a "0" that no "." follows, plain text by UTF-16 code units: such
///   a text is an identifier;
/// - two numbers, as Utilities::convertStringToDouble reads them and without "_", by value;
/// - anything else by natural text: fewer blanks at the start first, then runs of digits by their value and other runs
///   by code units.
/// Texts that are equal under these rules keep their order, in both directions.
class TextOrderKeys {
public:
    /// Called now and then during a sort with the share that is done, from 0 to 1; false ends the sort.
    using Progress = std::function<bool(double share)>;

    explicit TextOrderKeys(bool caseSensitive = true) : caseSensitive(caseSensitive) {}

    void reserve(std::size_t count) { keys.reserve(count); }
    void add(QString const& text);
    /// The same for a text of nothing but bytes below 128.
    void addAscii(std::string_view text);
    std::size_t size() const { return keys.size(); }

    /// Whether text `a` goes before text `b`, by their places in the order of adding.
    bool isBefore(std::size_t a, std::size_t b, bool descending) const;
    /// The places of all keys in their order. Empty if `progress` has ended the sort. The rules are no consistent order
    /// where numbers, identifiers and words are mixed; then the outcome is that of a stable merge sort.
    std::vector<int> sortedOrder(bool descending, Progress const& progress = {}) const;

private:
    enum class Kind : std::uint8_t { Empty, Number, Text };
    struct Key {
        double number = 0;
        std::size_t begin = 0; ///< in `bytes`: the natural form, and behind it the plain text
        std::uint32_t naturalSize = 0;
        std::uint32_t plainSize = 0;
        Kind kind = Kind::Empty;
        bool isIdentifier = false;
    };
    template <class View>
    void addUnits(View text, double number);
    template <class View>
    void noteKind(Key& key, View text, double number);
    std::string_view natural(Key const& key) const { return {bytes.data() + key.begin, key.naturalSize}; }
    std::string_view plain(Key const& key) const { return {bytes.data() + key.begin + key.naturalSize, key.plainSize}; }
    bool allAreNumbers() const;
    bool isUniform() const;
    class Pace;
    std::vector<int> uniformOrder(bool descending, Pace& pace) const;
    std::vector<int> mixedOrder(bool descending, Pace& pace) const;

    bool caseSensitive;
    std::vector<Key> keys;
    std::string bytes;
    std::size_t emptyKeys = 0;
    std::size_t numbers = 0;     ///< that are no identifiers
    std::size_t words = 0;       ///< texts that are no numbers and no identifiers
    std::size_t bareZeros = 0;   ///< "0" alone: an identifier that stands where the number would
    bool zeroFitsNumbers = true; ///< whether that holds beside the numbers that are there
};

namespace Utilities {

/// Whether `a` goes before `b` in a sort; see TextOrderKeys.
bool qStringCompare(QString const& a, QString const& b, bool descending);

} // namespace Utilities
