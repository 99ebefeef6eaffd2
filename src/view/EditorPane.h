#pragma once

#include <QPlainTextEdit>

/// The editor of many lines at the bottom of the window, which shows the main cell.
class EditorPane : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit EditorPane(QWidget* parent = nullptr);

    /// On, Tab and Enter belong to the text; off, they move through the table. See PaneKeys.
    void setLetEditorPaneConsumeNavigationKeystrokes(bool on) { letEditorPaneConsumeNavigationKeystrokes = on; }
    /// As if the key had been pressed here.
    void deliverKey(QKeyEvent* event) { keyPressEvent(event); }

signals:
    /// The edit is to end and its text to stay.
    void editingFinishedSignal();
    void nextRowWithColumnResetSignal();
    void nextColumnWithColumnResetSignal();
    void previousColumnWithColumnResetSignal();
    /// A click has come into the pane.
    void EditorPaneFocusInSignal();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// As QPlainTextEdit has it, but with the blanks of the text.
    QMimeData* createMimeDataFromSelection() const override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool letEditorPaneConsumeNavigationKeystrokes = true;
};
