#include "commands/ShortcutGrammar.h"

#include <array>

QList<QKeySequence> getKeySequenceList(QString const& shortcut) {
    QList<QKeySequence> sequences;
    for (QString const& part : shortcut.split(QLatin1Char('|'))) {
        QKeySequence const sequence(part.trimmed().toLower(), QKeySequence::PortableText);
        if (!sequence.toString(QKeySequence::PortableText).isEmpty())
            sequences.append(sequence);
    }
    return sequences;
}

QList<QKeySequence> withReturnForEnter(QKeySequence const& sequence) {
    QList<QKeySequence> all{sequence};
    for (int press = 0; press < sequence.count(); ++press) {
        if (sequence[uint(press)].key() != Qt::Key_Enter)
            continue;
        for (QKeySequence const& present : QList<QKeySequence>(all)) {
            std::array<QKeyCombination, 4> keys{QKeyCombination::fromCombined(0), QKeyCombination::fromCombined(0),
                                                QKeyCombination::fromCombined(0), QKeyCombination::fromCombined(0)};
            for (int i = 0; i < present.count(); ++i)
                keys[std::size_t(i)] = present[uint(i)];
            QKeyCombination& enter = keys[std::size_t(press)];
            enter = QKeyCombination(enter.keyboardModifiers(), Qt::Key_Return);
            all.append(QKeySequence(keys[0], keys[1], keys[2], keys[3]));
        }
    }
    all.removeFirst();
    return all;
}
