#include "storage/EditedBytes.h"

#include "storage/CellCodec.h"

#include <algorithm>
#include <optional>
#include <ranges>

namespace {

constexpr int longestCharacter = 8; ///< bytes, with shifts between character sets

std::string_view view(std::vector<char> const& bytes) {
    return {bytes.data(), bytes.size()};
}

/// A cut through a cell: so many bytes are so many characters of its text.
struct Cut {
    std::size_t bytes = 0;
    qsizetype characters = 0;
};

class Cutter {
public:
    Cutter(CellCodec const& codec, std::string_view bytes, QString const& text)
        : codec(codec), bytes(bytes), text(text) {}

    /// The cut at that character, or the next one before (after) it that leaves both parts the texts that they had.
    Cut atOrBefore(qsizetype character) const {
        for (int step = 0; step < longestCharacter && character - step > 0; ++step) {
            if (auto const cut = at(character - step))
                return *cut;
        }
        return {};
    }
    Cut atOrAfter(qsizetype character) const {
        for (int step = 0; step < longestCharacter && character + step < text.size(); ++step) {
            if (auto const cut = at(character + step))
                return *cut;
        }
        return {bytes.size(), text.size()};
    }

private:
    std::optional<Cut> at(qsizetype character) const {
        auto const lengthOf = [this](std::size_t count) { return codec.decode(bytes.substr(0, count)).size(); };
        auto const counts = std::views::iota(std::size_t(0), bytes.size() + 1);
        auto const from = std::ranges::lower_bound(counts, character, {}, lengthOf);
        for (auto count = from; count != counts.end() && *count < *from + longestCharacter; ++count) {
            if (codec.decode(bytes.substr(0, *count)) == QStringView(text).left(character) &&
                codec.decode(bytes.substr(*count)) == QStringView(text).mid(character))
                return Cut{*count, character};
        }
        return std::nullopt;
    }

    CellCodec const& codec;
    std::string_view bytes;
    QString const& text;
};

} // namespace

std::vector<char> editedBytes(CellCodec const& codec, std::string_view old, QString const& text) {
    QString const before = codec.decode(old);
    if (view(codec.encode(before)) == old)
        return codec.encode(text);
    auto const front = std::ranges::mismatch(before, text).in1 - before.begin();
    QStringView const restBefore = QStringView(before).mid(front);
    QStringView const restAfter = QStringView(text).mid(front);
    auto const behind = std::ranges::mismatch(restBefore | std::views::reverse, restAfter | std::views::reverse).in1 -
                        (restBefore | std::views::reverse).begin();
    Cutter const cutter(codec, old, before);
    Cut const first = cutter.atOrBefore(front);
    Cut const last = cutter.atOrAfter(before.size() - behind);
    qsizetype const keptBehind = before.size() - last.characters;
    auto const middle = codec.encode(text.mid(first.characters, text.size() - keptBehind - first.characters));
    std::vector<char> bytes(old.begin(), old.begin() + static_cast<std::ptrdiff_t>(first.bytes));
    bytes.insert(bytes.end(), middle.begin(), middle.end());
    bytes.insert(bytes.end(), old.begin() + static_cast<std::ptrdiff_t>(last.bytes), old.end());
    return bytes;
}
