#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>

class QTextDocument;

/// Knows the text of a cell through its edits in a document. A document has one kind of line break, and its plain text
/// one kind of blank; the cell has its own line breaks and characters, and all of it that the user leaves alone stays
/// as it is, also when the user takes back what was changed. Line breaks that are typed or pasted are line feeds.
/// Watches the document, which must outlive it.
class DocumentText : public QObject {
    Q_OBJECT

public:
    explicit DocumentText(QTextDocument* document, QObject* parent = nullptr);

    /// The document has just been set to `text`, the text of a cell.
    void wasSet(QString const& text);
    /// `text` has just been put behind the rest of it. The two characters of a line break must not come apart.
    void wasAppended(QString const& text);
    /// The text of the cell that the document stands for by now.
    QString text() const;

private:
    /// A state of the document that undo can lead back to.
    struct State {
        std::size_t hash;
        QByteArray breaks;
    };

    void onContentsChange(int position, int removed, int added);
    QString contentOf(int position, int length) const;
    QByteArray breaksAfter(int first, QStringView before, QStringView after) const;

    QTextDocument* document;
    QString content;          ///< as the document keeps it, with a character for each line break
    QByteArray breaks;        ///< for each line break of the content which one it is in the cell
    int steps = 0;            ///< that can be undone
    QHash<int, State> states; ///< by the number of such steps; without the present one
};
