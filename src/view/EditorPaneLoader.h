#pragma once

#include "view/DocumentText.h"

#include <QObject>
#include <QString>
#include <QTimer>

class QPlainTextEdit;

/// Loads texts into the editor pane without holding up the window: of several texts in one turn of the event loop only
/// the last, and a long one in chunks, which stop as soon as another text is wanted. Loads do not signal a change of
/// the text. Lives in the GUI thread beside the pane, which must outlive it.
class EditorPaneLoader : public QObject {
    Q_OBJECT

public:
    /// Where the cursor goes when a text has been loaded.
    enum class CursorPlace { Unset, End, Front };

    explicit EditorPaneLoader(QPlainTextEdit* pane, QObject* parent = nullptr);

    /// Loads `text` in the next turn of the event loop.
    void request(QString const& text);
    /// Whether the pane shows `text`, or will when its load has ended.
    bool isShowing(QString const& text) const;
    /// Begins a requested load at once.
    void flush();
    /// The text of a cell that the pane stands for, with what the user has done to it since it was loaded.
    QString text() const { return documentText.text(); }
    /// Forgets a requested or running load; what has been loaded stays.
    void abandon();
    void setCursorPlace(CursorPlace newPlace) { place = newPlace; }
    CursorPlace cursorPlace() const { return place; }
    /// Moves the cursor and the view to the cursor's place, as far as the text is loaded.
    void applyCursorPlace();
    /// A long text is being loaded and not complete.
    bool isChunkedLoadActive() const { return chunkedLoadActive; }

signals:
    /// A load in chunks has come to its end.
    void chunkedLoadFinished();

private:
    void begin(int generation);
    void loadAtOnce();
    void beginChunks();
    void appendChunk();
    void onChunkTimeout();
    void finish();
    void cancel();
    void moveScrollBar();
    void onScrollBarUserAction();
    bool isStale() const { return appliedUpdate != requestedUpdate; }
    bool isComplete() const { return loadedLength >= pendingText.size(); }

    QPlainTextEdit* pane;
    DocumentText documentText;
    QTimer chunkTimer;
    QString pendingText;
    int requestedUpdate = 0; ///< counts the texts asked for
    int appliedUpdate = 0;   ///< the one whose load has begun last
    qsizetype loadedLength = 0;
    CursorPlace place = CursorPlace::Unset;
    bool chunkedLoadActive = false;
    bool undoWasEnabled = true;
    bool userScrolled = false; ///< from then on a running load leaves the view alone
    bool programmaticScroll = false;
};
