#include "commands/ShortcutGrammar.h"

QList<QKeySequence> getKeySequenceList(QString const& shortcut) {
    QList<QKeySequence> sequences;
    for (QString const& part : shortcut.split(QLatin1Char('|'))) {
        QKeySequence const sequence(part.trimmed().toLower(), QKeySequence::PortableText);
        if (!sequence.toString(QKeySequence::PortableText).isEmpty())
            sequences.append(sequence);
    }
    return sequences;
}
