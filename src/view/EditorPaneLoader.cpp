#include "view/EditorPaneLoader.h"

#include "view/CellLengths.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextCursor>

#include <utility>

EditorPaneLoader::EditorPaneLoader(QPlainTextEdit* pane, QObject* parent)
    : QObject(parent), pane(pane), documentText(pane->document()) {
    chunkTimer.setInterval(0);
    connect(&chunkTimer, &QTimer::timeout, this, &EditorPaneLoader::onChunkTimeout);
    QScrollBar const* const bar = pane->verticalScrollBar();
    connect(bar, &QScrollBar::sliderPressed, this, &EditorPaneLoader::onScrollBarUserAction);
    connect(bar, &QScrollBar::sliderMoved, this, &EditorPaneLoader::onScrollBarUserAction);
    connect(bar, &QScrollBar::actionTriggered, this, [this](int action) {
        if (action != QAbstractSlider::SliderNoAction)
            onScrollBarUserAction();
    });
}

void EditorPaneLoader::request(QString const& text) {
    cancel();
    place = CursorPlace::Unset;
    pendingText = text;
    int const generation = ++requestedUpdate;
    QTimer::singleShot(0, this, [this, generation] { begin(generation); });
}

bool EditorPaneLoader::isShowing(QString const& text) const {
    if (isStale() || chunkedLoadActive)
        return pendingText == text;
    return documentText.text() == text;
}

void EditorPaneLoader::flush() {
    begin(requestedUpdate);
}

void EditorPaneLoader::abandon() {
    cancel();
    pendingText = QString();
    appliedUpdate = ++requestedUpdate;
}

/// A request that is no longer the last, or has begun already, is passed over.
void EditorPaneLoader::begin(int generation) {
    if (generation != requestedUpdate || !isStale())
        return;
    appliedUpdate = generation;
    loadedLength = 0;
    if (pendingText.size() <= CellLengths::longestLoadedAtOnce)
        loadAtOnce();
    else
        beginChunks();
}

void EditorPaneLoader::loadAtOnce() {
    QSignalBlocker const blocker(pane);
    pane->setPlainText(pendingText);
    documentText.wasSet(std::exchange(pendingText, QString()));
    applyCursorPlace();
}

void EditorPaneLoader::beginChunks() {
    chunkedLoadActive = true;
    undoWasEnabled = pane->document()->isUndoRedoEnabled();
    pane->document()->setUndoRedoEnabled(false);
    userScrolled = false;
    {
        QSignalBlocker const blocker(pane);
        pane->clear();
        documentText.wasSet(QString());
    }
    moveScrollBar();
    appendChunk();
    // A cursor in an empty text goes along with what is inserted.
    if (place != CursorPlace::End) {
        QSignalBlocker const blocker(pane);
        pane->moveCursor(QTextCursor::Start);
    }
    chunkTimer.start();
}

void EditorPaneLoader::appendChunk() {
    QSignalBlocker const blocker(pane);
    QTextCursor cursor(pane->document());
    cursor.movePosition(QTextCursor::End);
    qsizetype length = CellLengths::loadChunk;
    // The two characters of a line break, inserted apart, would make two.
    if (pendingText.mid(loadedLength + length - 1, 2) == QLatin1String("\r\n"))
        ++length;
    QString const chunk = pendingText.mid(loadedLength, length);
    cursor.insertText(chunk);
    documentText.wasAppended(chunk);
    loadedLength += length;
    moveScrollBar();
}

void EditorPaneLoader::onChunkTimeout() {
    if (isStale()) {
        cancel();
        return;
    }
    appendChunk();
    if (isComplete())
        finish();
}

void EditorPaneLoader::finish() {
    chunkTimer.stop();
    pane->document()->setUndoRedoEnabled(undoWasEnabled);
    chunkedLoadActive = false;
    pendingText = QString();
    loadedLength = 0;
    if (!userScrolled)
        applyCursorPlace();
    emit chunkedLoadFinished();
}

void EditorPaneLoader::cancel() {
    chunkTimer.stop();
    if (std::exchange(chunkedLoadActive, false))
        pane->document()->setUndoRedoEnabled(undoWasEnabled);
    if (place == CursorPlace::Front)
        place = CursorPlace::Unset;
    loadedLength = 0;
    userScrolled = false;
}

void EditorPaneLoader::applyCursorPlace() {
    if (place == CursorPlace::Unset)
        return;
    bool const wasProgrammatic = std::exchange(programmaticScroll, true);
    pane->moveCursor(place == CursorPlace::End ? QTextCursor::End : QTextCursor::Start);
    pane->ensureCursorVisible();
    programmaticScroll = wasProgrammatic;
    if (chunkedLoadActive)
        moveScrollBar();
}

void EditorPaneLoader::moveScrollBar() {
    if (userScrolled)
        return;
    bool const wasProgrammatic = std::exchange(programmaticScroll, true);
    QScrollBar* const bar = pane->verticalScrollBar();
    bar->setValue(place == CursorPlace::End ? bar->maximum() : 0);
    programmaticScroll = wasProgrammatic;
}

void EditorPaneLoader::onScrollBarUserAction() {
    if (chunkedLoadActive && !programmaticScroll)
        userScrolled = true;
}
