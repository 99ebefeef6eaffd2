#include "view/DocumentText.h"

#include <QStringView>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <iterator>

namespace {

/// What a document takes for a line break when it is given a text, from the one that a key makes on.
constexpr QStringView lineBreaks[] = {u"\n", u"\r\n", u"\r", u"\u2029", u"\ufdd0", u"\ufdd1", u"\u2028"};
constexpr char lineFeed = 0;

bool isBreak(QChar character) {
    return character == QChar::ParagraphSeparator || character == QChar::LineSeparator;
}

int countBreaks(QStringView content) {
    return static_cast<int>(std::count_if(content.begin(), content.end(), isBreak));
}

/// The place in `lineBreaks` of the one that a text begins with, -1 if it begins with another character.
int breakAtStart(QStringView text) {
    if (text.startsWith(lineBreaks[1]))
        return 1;
    auto const found = std::find_if(std::begin(lineBreaks), std::end(lineBreaks),
                                    [&](QStringView each) { return each.front() == text.front() && each.size() == 1; });
    return found == std::end(lineBreaks) ? -1 : static_cast<int>(found - std::begin(lineBreaks));
}

QByteArray breaksOf(QStringView text) {
    QByteArray breaks;
    while (!text.isEmpty()) {
        int const kind = breakAtStart(text);
        if (kind >= 0)
            breaks += static_cast<char>(kind);
        text = text.mid(kind >= 0 ? lineBreaks[kind].size() : 1);
    }
    return breaks;
}

} // namespace

DocumentText::DocumentText(QTextDocument* document, QObject* parent) : QObject(parent), document(document) {
    document->documentLayout(); // without one a document does not tell what changes
    wasSet(document->toPlainText());
    connect(document, &QTextDocument::contentsChange, this, &DocumentText::onContentsChange);
}

void DocumentText::wasSet(QString const& text) {
    content = document->toRawText();
    breaks = breaksOf(text);
    steps = document->availableUndoSteps();
    states.clear();
}

void DocumentText::wasAppended(QString const& text) {
    QByteArray const added = breaksOf(text);
    breaks.replace(breaks.size() - added.size(), added.size(), added);
}

QString DocumentText::text() const {
    QString text;
    text.reserve(content.size());
    auto kind = breaks.begin();
    for (QChar const character : content) {
        if (isBreak(character))
            text += lineBreaks[static_cast<std::size_t>(*kind++)];
        else
            text += character;
    }
    return text;
}

/// What undo and redo lead back to is known. Anything else is an edit, which leaves nothing to be redone.
void DocumentText::onContentsChange(int position, int removed, int added) {
    // While there is no undo the document forgets what it could have led back to.
    if (document->isUndoRedoEnabled())
        states.insert(steps, {qHash(content), breaks});
    else
        states.clear();
    QStringView const before = QStringView(content).mid(position, removed);
    QString const after = contentOf(position, added);
    QByteArray const next = breaksAfter(countBreaks(QStringView(content).left(position)), before, after);
    content.replace(position, before.size(), after);
    steps = document->availableUndoSteps();
    auto const known = states.constFind(steps);
    if (known != states.cend() && known->hash == qHash(content)) {
        breaks = known->breaks;
        return;
    }
    breaks = next;
    states.removeIf([this](auto const& state) { return state.key() > steps; });
}

/// A part of what the document holds now. Its end counts as a character here and there.
QString DocumentText::contentOf(int position, int length) const {
    QTextCursor part(document);
    part.setPosition(position);
    part.setPosition(std::min(position + length, document->characterCount() - 1), QTextCursor::KeepAnchor);
    return part.selectedText();
}

/// The line breaks of the whole when those of `before` have given way to those of `after`. A part that is dragged
/// elsewhere changes places with what it passes.
QByteArray DocumentText::breaksAfter(int first, QStringView before, QStringView after) const {
    QByteArray const old = breaks.mid(first, countBreaks(before));
    QByteArray now(countBreaks(after), lineFeed);
    qsizetype const turn = before.size() == after.size() ? before.toString().repeated(2).indexOf(after) : -1;
    if (turn >= 0) {
        int const passed = countBreaks(before.left(turn));
        now = old.mid(passed) + old.left(passed);
    }
    return QByteArray(breaks).replace(first, old.size(), now);
}
