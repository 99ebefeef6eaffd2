#include "storage/Iso2022Jp.h"

#include <QTextCodec>

namespace {

constexpr char Escape = '\x1B';
constexpr std::string_view ToAscii = "\x1B(B";
constexpr std::string_view ToTwoBytes = "\x1B$B";

bool isLineEnd(char byte) {
    return byte == '\r' || byte == '\n' || byte == '\x1E';
}

bool isGraphic(char byte) {
    return byte > 0x20 && byte < 0x7F;
}

/// Collects the text of a cell byte by byte.
class Decoder {
public:
    explicit Decoder(QTextCodec const& twoByteCodec) : codec(twoByteCodec) {}

    void take(char byte) {
        auto const role = state.take(byte);
        if (role == Iso2022JpState::Role::Escape) {
            if (byte == Escape) {
                endEscape();
                endPairs();
            }
            escape += byte;
            if (!state.isInEscape())
                escape.clear();
            return;
        }
        endEscape();
        if (role == Iso2022JpState::Role::Character && state.set() == Iso2022JpState::Set::TwoBytes)
            return takeOfPair(byte);
        endPairs();
        text += role == Iso2022JpState::Role::Plain ? plain(byte) : single(byte);
    }

    QString finish() {
        endEscape();
        endPairs();
        return text;
    }

private:
    static QChar plain(char byte) { return byte & 0x80 ? QChar(QChar::ReplacementCharacter) : QChar::fromLatin1(byte); }

    QChar single(char byte) const {
        bool const isRoman = state.set() == Iso2022JpState::Set::Roman;
        if (isRoman)
            return byte == '\\' ? QChar(0xA5) : QChar(0x203E);
        bool const isKana = byte > 0x20 && byte < 0x60;
        return isKana ? QChar(0xFF61 + byte - 0x21) : plain(byte < 0x20 ? byte : '\x80');
    }

    void takeOfPair(char byte) {
        if (!isGraphic(byte)) {
            endPairs();
            text += QChar::ReplacementCharacter;
        } else {
            pairs += byte;
        }
    }

    /// What was no shift after all.
    void endEscape() {
        if (escape.empty())
            return;
        endPairs();
        text += QChar::ReplacementCharacter;
        text += QLatin1String(escape.data() + 1, static_cast<int>(escape.size()) - 1);
        escape.clear();
    }

    void endPairs() {
        if (pairs.empty())
            return;
        bool const halfIsLeft = pairs.size() % 2 != 0;
        if (halfIsLeft)
            pairs.pop_back();
        if (!pairs.empty()) {
            pairs.insert(0, ToTwoBytes);
            pairs += ToAscii;
            text += codec.toUnicode(pairs.data(), static_cast<int>(pairs.size()));
        }
        pairs.clear();
        if (halfIsLeft)
            text += QChar::ReplacementCharacter;
    }

    QTextCodec const& codec;
    Iso2022JpState state;
    QString text;
    std::string escape;
    std::string pairs;
};

} // namespace

Iso2022JpState::Role Iso2022JpState::take(char byte) {
    if (byte == Escape) {
        escape = 1;
        return Role::Escape;
    }
    if (escape == 1 && (byte == '(' || byte == '$')) {
        escape = 2;
        dollar = byte == '$';
        return Role::Escape;
    }
    if (escape == 2) {
        bool const shifts = dollar ? byte == '@' || byte == 'B' : byte == 'B' || byte == 'J' || byte == 'I';
        if (shifts) {
            escape = 0;
            current = dollar ? Set::TwoBytes : byte == 'B' ? Set::Ascii : byte == 'J' ? Set::Roman : Set::Katakana;
            return Role::Escape;
        }
    }
    escape = 0;
    if (isLineEnd(byte) && current != Set::Roman)
        current = Set::Ascii;
    bool const isPlain = current == Set::Ascii || (current == Set::Roman && byte != '\\' && byte != '~');
    return isPlain ? Role::Plain : Role::Character;
}

std::uint64_t Iso2022JpShifts::structure(char const* window, std::ptrdiff_t bytes) {
    std::uint64_t mask = 0;
    for (std::ptrdiff_t i = 0; i < bytes; ++i) {
        states[static_cast<std::size_t>(i)] = state;
        bool const mayShift = state.isLatin() && window[i] == Escape;
        lastIsPlain = state.take(window[i]) == Iso2022JpState::Role::Plain;
        mask |= std::uint64_t(lastIsPlain || mayShift) << i;
    }
    walked = bytes;
    states[static_cast<std::size_t>(bytes)] = state;
    return mask;
}

std::size_t Iso2022Jp::findStructure(std::string_view cell, std::string_view sequence) {
    Iso2022JpState state;
    for (std::size_t at = 0; at < cell.size() && !sequence.empty(); ++at) {
        bool const mayShift = state.isLatin() && cell[at] == Escape;
        bool const isPlain = state.take(cell[at]) == Iso2022JpState::Role::Plain;
        if ((isPlain || mayShift) && cell.substr(at).starts_with(sequence))
            return at;
    }
    return std::string_view::npos;
}

std::string_view Iso2022Jp::closing(std::string_view cell) {
    Iso2022JpState state;
    for (char const byte : cell)
        state.take(byte);
    return state.isAscii() ? std::string_view() : ToAscii;
}

QString Iso2022Jp::decode(std::string_view cell, QTextCodec const& codec) {
    Decoder decoder(codec);
    for (char const byte : cell)
        decoder.take(byte);
    return decoder.finish();
}
