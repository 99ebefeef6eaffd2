#include "core/TextOrderKeys.h"

#include "core/NumberUtilities.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

/// Asks now and then whether to go on.
class TextOrderKeys::Pace {
public:
    struct Ended {};

    Pace(std::size_t count, Progress const& progress)
        : progress(progress), expected(std::max(double(count) * std::log2(double(count) + 1), 1.0)) {}

    void step() {
        constexpr std::size_t often = 1 << 14;
        if (++steps % often == 0 && progress && !progress(std::min(double(steps) / expected, 1.0)))
            throw Ended();
    }

private:
    Progress const& progress;
    double expected;
    std::size_t steps = 0;
};

namespace {

constexpr char identifierStart = '0';
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

bool isDigit(unsigned unit) {
    return unit >= '0' && unit <= '9';
}

/// Appends a UTF-16 code unit so that bytes compare as code units do. A zero byte ends a run, so it and the byte that
/// stands for it are written in two.
void appendUnit(std::string& out, unsigned unit) {
    if (unit <= 1) {
        out += {'\x01', static_cast<char>(unit)};
    } else if (unit < 0x80) {
        out += static_cast<char>(unit);
    } else if (unit < 0x800) {
        out += {static_cast<char>(0xC0 | (unit >> 6)), static_cast<char>(0x80 | (unit & 0x3F))};
    } else {
        out += {static_cast<char>(0xE0 | (unit >> 12)), static_cast<char>(0x80 | ((unit >> 6) & 0x3F)),
                static_cast<char>(0x80 | (unit & 0x3F))};
    }
}

/// Appends a number so that bytes compare as numbers do: how many bytes it needs, and these from the highest on.
void appendNumber(std::string& out, std::uint64_t number) {
    int const size = (std::bit_width(number) + 7) / 8;
    out += static_cast<char>(size);
    for (int byte = size - 1; byte >= 0; --byte)
        out += static_cast<char>(number >> (8 * byte));
}

/// The value of a run of digits from `at` on, at most the largest that 64 bits hold; `at` moves behind it.
template <class View>
std::uint64_t takeDigits(View text, std::size_t& at) {
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at) {
        unsigned const digit = text[at] - '0';
        value = value > (largest - digit) / 10 ? largest : value * 10 + digit;
    }
    return value;
}

template <class View>
std::size_t blanksAtStart(View text) {
    std::size_t blanks = 0;
    while (blanks < text.size() && text[blanks] == ' ')
        ++blanks;
    return blanks;
}

/// The form by which natural texts compare byte by byte. Blanks at the start come first; a text of blanks alone goes
/// behind those with as many blanks.
template <class View>
void appendNatural(std::string& out, View text) {
    constexpr std::size_t inOneByte = 100;
    std::size_t at = blanksAtStart(text);
    bool const isBlank = at == text.size();
    if (at < inOneByte) {
        out += static_cast<char>(2 * at + (isBlank ? 1 : 0));
    } else {
        out += static_cast<char>(2 * inOneByte);
        appendNumber(out, 2 * at + (isBlank ? 1 : 0));
    }
    // A text that starts with digits goes among the others as its first digit would.
    if (!isBlank && isDigit(text[at]))
        out += '0';
    while (at < text.size()) {
        if (isDigit(text[at])) {
            appendNumber(out, takeDigits(text, at));
        } else {
            for (; at < text.size() && !isDigit(text[at]); ++at)
                appendUnit(out, text[at]);
            out += '\0';
        }
    }
}

/// A double as a number that compares as the double does.
std::uint64_t orderedBits(double value) {
    auto const bits = std::bit_cast<std::uint64_t>(value + 0.0); // -0 becomes 0
    constexpr std::uint64_t sign = std::uint64_t(1) << 63;
    return bits & sign ? ~bits : bits | sign;
}

/// The start of a text of bytes, as numbers, and where to find the rest.
struct Prefixed {
    std::uint64_t first;
    std::uint64_t second;
    int place;
};

std::uint64_t eightBytes(std::string_view text, std::size_t from) {
    std::uint64_t value = 0;
    std::size_t const size = from < text.size() ? std::min(text.size() - from, sizeof value) : 0;
    for (std::size_t i = 0; i < size; ++i)
        value |= std::uint64_t(static_cast<unsigned char>(text[from + i])) << (56 - 8 * i);
    return value;
}

template <class TextOf, class Pace>
void sortByBytes(std::vector<int>& places, TextOf&& textOf, bool descending, Pace& pace) {
    constexpr std::size_t inPrefix = 16;
    std::vector<Prefixed> prefixed;
    prefixed.reserve(places.size());
    for (int const place : places) {
        std::string_view const text = textOf(place);
        prefixed.push_back({eightBytes(text, 0), eightBytes(text, sizeof(std::uint64_t)), place});
    }
    std::sort(prefixed.begin(), prefixed.end(), [&](Prefixed const& a, Prefixed const& b) {
        pace.step();
        if (a.first != b.first)
            return (a.first < b.first) != descending;
        if (a.second != b.second)
            return (a.second < b.second) != descending;
        std::string_view const textA = textOf(a.place);
        std::string_view const textB = textOf(b.place);
        // Bytes that are missing are zero in the prefix, so the lengths decide there too.
        int const order =
            textA.substr(std::min(inPrefix, textA.size())).compare(textB.substr(std::min(inPrefix, textB.size())));
        if (order != 0)
            return (order < 0) != descending;
        if (textA.size() != textB.size())
            return (textA.size() < textB.size()) != descending;
        return a.place < b.place;
    });
    std::transform(prefixed.begin(), prefixed.end(), places.begin(), [](Prefixed const& key) { return key.place; });
}

template <class NumberOf, class Pace>
void sortByNumbers(std::vector<int>& places, NumberOf&& numberOf, bool descending, Pace& pace) {
    std::vector<std::pair<std::uint64_t, int>> keyed;
    keyed.reserve(places.size());
    for (int const place : places) {
        std::uint64_t const bits = orderedBits(numberOf(place));
        keyed.emplace_back(descending ? ~bits : bits, place);
    }
    std::sort(keyed.begin(), keyed.end(), [&](auto const& a, auto const& b) {
        pace.step();
        return a < b;
    });
    std::transform(keyed.begin(), keyed.end(), places.begin(), [](auto const& key) { return key.second; });
}

} // namespace

void TextOrderKeys::add(QString const& text) {
    QString const compared = caseSensitive ? text : text.toLower();
    bool const mayBeNumber = !compared.isEmpty() && !compared.contains(QLatin1Char('_'));
    std::u16string_view const units(reinterpret_cast<char16_t const*>(compared.utf16()),
                                    static_cast<std::size_t>(compared.size()));
    addUnits(units, mayBeNumber ? Utilities::convertStringToDouble(compared.toUtf8(), false) : notANumber);
}

void TextOrderKeys::addAscii(std::string_view text) {
    std::string lowered;
    if (!caseSensitive) {
        lowered.assign(text);
        for (char& c : lowered)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        text = lowered;
    }
    // A letter at the start, other than that of an exponent, spares the attempt.
    bool const startsWord =
        !text.empty() && std::isalpha(static_cast<unsigned char>(text[0])) != 0 && text[0] != 'e' && text[0] != 'E';
    bool const mayBeNumber = !startsWord && !text.empty() && text.find('_') == std::string_view::npos;
    addUnits(text, mayBeNumber ? Utilities::convertStringToDouble(
                                     QByteArray::fromRawData(text.data(), static_cast<int>(text.size())), false)
                               : notANumber);
}

template <class View>
void TextOrderKeys::addUnits(View text, double number) {
    Key key;
    key.begin = bytes.size();
    if (!text.empty()) {
        appendNatural(bytes, text);
        key.naturalSize = static_cast<std::uint32_t>(bytes.size() - key.begin);
        for (auto const unit : text)
            appendUnit(bytes, unit);
        key.plainSize = static_cast<std::uint32_t>(bytes.size() - key.begin - key.naturalSize);
    }
    noteKind(key, text, number);
    keys.push_back(key);
}

template <class View>
void TextOrderKeys::noteKind(Key& key, View text, double number) {
    if (text.empty()) {
        ++emptyKeys;
        return;
    }
    std::size_t const start = blanksAtStart(text);
    key.isIdentifier =
        start < text.size() && text[start] == identifierStart && (start + 1 == text.size() || text[start + 1] != '.');
    key.kind = number == number ? Kind::Number : Kind::Text;
    key.number = number;
    if (key.isIdentifier) {
        bareZeros += text.size() == 1 ? 1 : 0;
    } else if (key.kind == Kind::Text) {
        ++words;
    } else {
        ++numbers;
        bool const isNegative = text[0] == '-' && number < 0;
        bool const isPositive = isDigit(text[0]) && number > 0;
        zeroFitsNumbers = zeroFitsNumbers && (isNegative || isPositive);
    }
}

/// A "0" alone compares as text with every number; that comes to the same as comparing values, unless one starts with
/// something else than a digit or a minus or is zero too.
bool TextOrderKeys::allAreNumbers() const {
    return numbers + bareZeros + emptyKeys == keys.size() && (bareZeros == 0 || zeroFitsNumbers);
}

bool TextOrderKeys::isBefore(std::size_t a, std::size_t b, bool descending) const {
    Key const& keyA = keys[a];
    Key const& keyB = keys[b];
    if (keyA.kind == Kind::Empty || keyB.kind == Kind::Empty)
        return keyA.kind != keyB.kind && (keyA.kind == Kind::Empty) == descending;
    if (keyA.isIdentifier || keyB.isIdentifier) {
        int const order = plain(keyA).compare(plain(keyB));
        return order != 0 && (order < 0) != descending;
    }
    if (keyA.kind == Kind::Number && keyB.kind == Kind::Number)
        return keyA.number != keyB.number && (keyA.number < keyB.number) != descending;
    int const order = natural(keyA).compare(natural(keyB));
    return order != 0 && (order < 0) != descending;
}

std::vector<int> TextOrderKeys::sortedOrder(bool descending, Progress const& progress) const {
    Pace pace(keys.size(), progress);
    try {
        return isUniform() ? uniformOrder(descending, pace) : mixedOrder(descending, pace);
    } catch (Pace::Ended const&) {
        return {};
    }
}

/// Whether one way of comparing serves for all keys that are not empty.
bool TextOrderKeys::isUniform() const {
    std::size_t const filled = keys.size() - emptyKeys;
    return allAreNumbers() || words == filled || words + numbers == 0;
}

std::vector<int> TextOrderKeys::uniformOrder(bool descending, Pace& pace) const {
    std::vector<int> filled;
    std::vector<int> empty;
    filled.reserve(keys.size() - emptyKeys);
    empty.reserve(emptyKeys);
    for (std::size_t i = 0; i < keys.size(); ++i)
        (keys[i].kind == Kind::Empty ? empty : filled).push_back(static_cast<int>(i));
    auto const keyAt = [this](int place) -> Key const& { return keys[static_cast<std::size_t>(place)]; };
    if (allAreNumbers())
        sortByNumbers(
            filled, [&](int place) { return keyAt(place).number; }, descending, pace);
    else if (words == filled.size())
        sortByBytes(
            filled, [&](int place) { return natural(keyAt(place)); }, descending, pace);
    else
        sortByBytes(
            filled, [&](int place) { return plain(keyAt(place)); }, descending, pace);
    std::vector<int>& first = descending ? empty : filled;
    std::vector<int> const& last = descending ? filled : empty;
    first.insert(first.end(), last.begin(), last.end());
    return first;
}

std::vector<int> TextOrderKeys::mixedOrder(bool descending, Pace& pace) const {
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        pace.step();
        return isBefore(static_cast<std::size_t>(a), static_cast<std::size_t>(b), descending);
    });
    return order;
}

bool Utilities::qStringCompare(QString const& a, QString const& b, bool descending) {
    TextOrderKeys keys;
    keys.add(a);
    keys.add(b);
    return keys.isBefore(0, 1, descending);
}
