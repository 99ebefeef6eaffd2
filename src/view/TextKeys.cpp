#include "view/TextKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <iterator>

namespace {

struct KeyRange {
    int first;
    int last;
};

constexpr int firstSpecialKey = 0x01000000;

/// The assigned special keys. What lies between the ranges counts as text.
constexpr KeyRange specialKeys[] = {
    {0x01000000, 0x01000026}, // escape, tab, return, navigation, modifiers
    {0x01000030, 0x01000059}, // function keys, super, menu, hyper, help, direction
    {0x01000060, 0x01000064}, // back, forward, stop, refresh
    {0x01000070, 0x01000077}, // volume, bass, treble
    {0x01000080, 0x01000086}, // media
    {0x01000090, 0x01000094}, // home page, favourites, search, standby, open address
    {0x010000A0, 0x010000E1}, // launch keys, monitor, power, applications
    {0x010000E3, 0x0100011E}, // windows, documents, screen, memory
    {0x01000120, 0x01000124}, // clipboard, history, find
    {0x01001103, 0x01001103}, // AltGr
    {0x01001120, 0x0100113F}, // multi key, kanji, kana and other input modes
    {0x0100117E, 0x0100117E}, // mode switch
    {0x01001250, 0x01001262}, // dead keys
    {0x0100FFFF, 0x01010002}, // media last, select, yes, no
    {0x01020001, 0x01020006}, // cancel, printer, execute, sleep, play, zoom
    {0x0102000A, 0x0102000A}, // exit
    {0x01100000, 0x01100009}, // telephone
    {0x01100020, 0x01100021}, // camera
    {0x01FFFFFF, 0x01FFFFFF}, // unknown
};

} // namespace

bool isTextKey(int key) {
    if (key < firstSpecialKey)
        return true;
    auto const behind = std::upper_bound(std::begin(specialKeys), std::end(specialKeys), key,
                                         [](int wanted, KeyRange const& range) { return wanted < range.first; });
    return behind == std::begin(specialKeys) || key > std::prev(behind)->last;
}

bool bringsCharacter(QKeyEvent const& event) {
    if (event.text().isEmpty() || !event.text().isValidUtf16())
        return false;
    char32_t const character = event.text().toUcs4().front();
    // Joiners and marks of direction are entered as well, and so is what a font of one's own has.
    QChar::Category const category = QChar::category(character);
    return QChar::isPrint(character) || category == QChar::Other_Format || category == QChar::Other_PrivateUse;
}

bool isFunctionKey(int key) {
    return key >= 0x01000030 && key <= 0x01000052;
}

bool isInputMethodKey(QKeyEvent const& event) {
    constexpr quint32 nativeCode = 229;
    return event.nativeVirtualKey() == nativeCode;
}
