#pragma once

class QKeyEvent;

/// Whether a key, given as Qt::Key, writes text: every code below Qt's special keys and the codes that Qt has not
/// assigned among them. Function, navigation, modifier, media and dead keys do not.
bool isTextKey(int key);
/// Whether a key press brings a character that can be entered. Keys of texts do not always: a key that switches the
/// layout, or that the layout does not fill, has a code among theirs and no text.
bool bringsCharacter(QKeyEvent const& event);
/// F1 to F35.
bool isFunctionKey(int key);
/// Whether an input method announces by the press that it handles the key itself.
bool isInputMethodKey(QKeyEvent const& event);
