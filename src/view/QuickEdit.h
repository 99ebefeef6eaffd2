#pragma once

#include <QLineEdit>

/// The one-line editor over a cell.
class QuickEdit : public QLineEdit {
    Q_OBJECT

public:
    explicit QuickEdit(QWidget* parent = nullptr);

    /// On, the text stays selected when the editor opens, so that the first key replaces it; off, the caret goes to
    /// the end.
    void setOverwriteOnEdit(bool on) { overwriteOnEdit = on; }
    void setEditorColors(QColor const& background, QColor const& text);

signals:
    /// A key is pressed and not yet released.
    void unicodeTypingSignal(bool held);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    bool overwriteOnEdit = true;
    bool keyHeld = false; ///< between a key press and its release
    bool openedByRightClick = false;
    bool composing = false; ///< an input method is composing
};
