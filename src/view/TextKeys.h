#pragma once

/// Whether a key, given as Qt::Key, writes text: every code below Qt's special keys and the codes that Qt has not
/// assigned among them. Function, navigation, modifier, media and dead keys do not.
bool isTextKey(int key);
/// F1 to F35.
bool isFunctionKey(int key);
