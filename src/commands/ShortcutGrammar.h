#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

/// The key sequences of a shortcut text: alternatives are separated by "|", the presses of a chord by ",", the keys of
/// a press by "+", as in "ctrl+e|f2" or "ctrl+k,ctrl+u". Keys have Qt's portable names, in any case. An alternative
/// that is no key sequence is left out.
QList<QKeySequence> getKeySequenceList(QString const& shortcut);

/// The same presses with the main keyboard's Return for any or all of the keypad's Enter. None for a sequence without
/// Enter.
QList<QKeySequence> withReturnForEnter(QKeySequence const& sequence);
