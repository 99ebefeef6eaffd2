#include "view/KeyRules.h"

#include "view/TextKeys.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr int inputMethodKey = 229;

/// What a keyboard sends: keys of ASCII characters bring them.
KeyDecision press(int key, Qt::KeyboardModifiers modifiers, KeyState const& state = {}, quint32 native = 0) {
    QString const text = key >= ' ' && key <= '~' ? QString(QChar(key)) : QString();
    return decideKey(QKeyEvent(QEvent::KeyPress, key, modifiers, 0, native, 0, text), state);
}

KeyState editingInPane(bool paneTakesKeys) {
    KeyState state;
    state.cellEditing = state.editing = state.editorPaneShown = true;
    state.paneTakesKeys = paneTakesKeys;
    return state;
}

} // namespace

TEST(TextKeys, EndAndBeginAtTheEdgesOfTheSpecialKeys) {
    struct Edge {
        int key;
        bool isText;
    };
    // The first and last code of each range and their neighbours.
    for (Edge const& edge : std::vector<Edge>{
             {Qt::Key_A, true},        {0x00FFFFFF, true},           {Qt::Key_Escape, false},
             {0x01000026, false},      {0x01000027, true},           {0x0100002F, true},
             {Qt::Key_F1, false},      {Qt::Key_F35, false},         {0x01000059, false},
             {0x0100005A, true},       {0x010000E1, false},          {0x010000E2, true},
             {0x010000E3, false},      {0x0100011F, true},           {Qt::Key_AltGr, false},
             {0x01001102, true},       {0x01001104, true},           {0x0100113F, false},
             {0x01001140, true},       {Qt::Key_Mode_switch, false}, {Qt::Key_Dead_Grave, false},
             {0x01001262, false},      {0x01001263, true},           {0x0100FFFE, true},
             {0x0100FFFF, false},      {0x01010003, true},           {0x01020007, true},
             {Qt::Key_Exit, false},    {0x01100009, false},          {0x0110000A, true},
             {0x01100021, false},      {0x01100022, true},           {0x01FFFFFE, true},
             {Qt::Key_unknown, false}, {0x02000000, true},
         })
        EXPECT_EQ(isTextKey(edge.key), edge.isText) << std::hex << edge.key;
}

TEST(KeyRules, DecideByKeyModifiersAndState) {
    struct Case {
        char const* what;
        int key;
        Qt::KeyboardModifiers modifiers;
        KeyState state;
        KeyAction expected;
    };
    KeyState const idle;
    KeyState dead;
    dead.dead = true;
    KeyState editing;
    editing.editing = editing.cellEditing = true;
    KeyState shownEditor = editing;
    shownEditor.cellEditorShown = true;
    KeyState left = shownEditor;
    left.leftByEditor = true;
    for (Case const& test : std::vector<Case>{
             {"letter while loading", Qt::Key_A, Qt::NoModifier, dead, KeyAction::Swallow},
             {"ctrl while loading", Qt::Key_C, Qt::ControlModifier, dead, KeyAction::Swallow},
             {"return", Qt::Key_Return, Qt::NoModifier, idle, KeyAction::NextRow},
             {"keypad enter", Qt::Key_Enter, Qt::KeypadModifier, idle, KeyAction::NextRow},
             {"shift return", Qt::Key_Return, Qt::ShiftModifier, idle, KeyAction::PassToBase},
             {"keypad return", Qt::Key_Return, Qt::KeypadModifier, idle, KeyAction::PassToBase},
             {"ctrl enter", Qt::Key_Enter, Qt::ControlModifier, idle, KeyAction::Ignore},
             {"return for the pane", Qt::Key_Return, Qt::NoModifier, editingInPane(true), KeyAction::Ignore},
             {"return past the pane", Qt::Key_Return, Qt::NoModifier, editingInPane(false), KeyAction::NextRow},
             {"return in an editor", Qt::Key_Return, Qt::NoModifier, editing, KeyAction::NextRow},
             {"arrow", Qt::Key_Left, Qt::NoModifier, idle, KeyAction::Move},
             {"arrow in an editor", Qt::Key_Left, Qt::NoModifier, editing, KeyAction::Ignore},
             {"keypad arrow", Qt::Key_Up, Qt::KeypadModifier, idle, KeyAction::Scroll},
             {"keypad arrow in an editor", Qt::Key_Up, Qt::KeypadModifier, editing, KeyAction::Ignore},
             {"ctrl arrow", Qt::Key_Down, Qt::ControlModifier, idle, KeyAction::Ignore},
             {"letter", Qt::Key_A, Qt::NoModifier, idle, KeyAction::StartEdit},
             {"capital", Qt::Key_A, Qt::ShiftModifier, idle, KeyAction::StartEdit},
             {"keypad digit", Qt::Key_5, Qt::KeypadModifier, idle, KeyAction::StartEdit},
             {"shift keypad digit", Qt::Key_5, Qt::ShiftModifier | Qt::KeypadModifier, idle, KeyAction::PassToBase},
             {"letter in an editor", Qt::Key_A, Qt::NoModifier, shownEditor, KeyAction::StartEdit},
             {"letter that the editor left", Qt::Key_A, Qt::NoModifier, left, KeyAction::Swallow},
             {"alt digit that the editor left", Qt::Key_1, Qt::AltModifier, left, KeyAction::Swallow},
             {"return that the editor left", Qt::Key_Return, Qt::NoModifier, left, KeyAction::NextRow},
             {"alt digit", Qt::Key_1, Qt::AltModifier, idle, KeyAction::StartEdit},
             {"alt keypad digit", Qt::Key_1, Qt::AltModifier | Qt::KeypadModifier, idle, KeyAction::StartEdit},
             {"alt digit with an editor", Qt::Key_1, Qt::AltModifier, shownEditor, KeyAction::Swallow},
             {"alt letter", Qt::Key_A, Qt::AltModifier, idle, KeyAction::Ignore},
             {"function key", Qt::Key_F2, Qt::NoModifier, idle, KeyAction::Swallow},
             {"ctrl function key", Qt::Key_F35, Qt::ControlModifier, idle, KeyAction::Swallow},
             {"home", Qt::Key_Home, Qt::NoModifier, idle, KeyAction::PassToBase},
         })
        EXPECT_EQ(press(test.key, test.modifiers, test.state).action, test.expected) << test.what;
    EXPECT_EQ(press(Qt::Key_A, Qt::NoModifier, idle, inputMethodKey).action, KeyAction::PassToBase);
    EXPECT_EQ(press(Qt::Key_Right, Qt::NoModifier).direction, Direction::Right);
}

TEST(KeyRules, OnlyAKeyThatBringsACharacterStartsAnEdit) {
    struct Case {
        char const* what;
        int key;
        QString text;
        bool starts;
    };
    for (Case const& test : std::vector<Case>{
             {"a letter of a layout", Qt::Key_A, QStringLiteral("ä"), true},
             {"a letter outside the plane", 0, QString::fromUcs4(U"\U0001d504", 1), true},
             {"a space", Qt::Key_Space, QStringLiteral(" "), true},
             {"a joiner", 0, QString(QChar(0x200d)), true},
             {"a private character", 0, QString(QChar(0xe000)), true},
             {"a switch of the layout", 0, QString(), false},
             {"an unassigned key", 0x0100011f, QString(), false},
             {"a letter without text", Qt::Key_A, QString(), false},
             {"a digit without text", Qt::Key_1, QString(), false},
             {"half a character", Qt::Key_A, QString(QChar(0xd835)), false},
             {"a control character", Qt::Key_A, QString(QChar(0x1b)), false},
             {"a dead key", Qt::Key_Dead_Acute, QString(QChar(0xb4)), false},
         }) {
        Qt::KeyboardModifiers const modifiers = test.key == Qt::Key_1 ? Qt::AltModifier : Qt::NoModifier;
        KeyAction const action =
            decideKey(QKeyEvent(QEvent::KeyPress, test.key, modifiers, test.text), KeyState()).action;
        EXPECT_EQ(action == KeyAction::StartEdit, test.starts) << test.what;
    }
}

TEST(KeyRules, TabIsTheTablesUnlessThePaneTakesIt) {
    auto const tab = [](int key, Qt::KeyboardModifiers modifiers, KeyState const& state) {
        return decideTab(QKeyEvent(QEvent::KeyPress, key, modifiers), state).action;
    };
    EXPECT_EQ(tab(Qt::Key_Tab, Qt::NoModifier, {}), KeyAction::NextColumn);
    EXPECT_EQ(tab(Qt::Key_Backtab, Qt::ShiftModifier, {}), KeyAction::PreviousColumn);
    EXPECT_EQ(tab(Qt::Key_Tab, Qt::ControlModifier, {}), KeyAction::PassToBase);
    EXPECT_EQ(tab(Qt::Key_Tab, Qt::NoModifier, editingInPane(true)), KeyAction::Ignore);
    EXPECT_EQ(tab(Qt::Key_Backtab, Qt::ShiftModifier, editingInPane(false)), KeyAction::PreviousColumn);
}
