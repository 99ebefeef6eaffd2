#pragma once

#include <QObject>

class QKeyEvent;
class QWidget;

/// Keeps all keys from a window that the user does not expect, until it has stood in front for a moment without any.
/// The mouse counts at once. Every box and dialog that opens without being asked for has one.
class KeyRest : public QObject {
    Q_OBJECT

public:
    /// `window` may be shown already, and outlives this.
    explicit KeyRest(QWidget& window);
    /// Whether a window that opens now needs it: it comes from outside, or by a key, which may belong to a text that
    /// goes on.
    static bool isNeeded();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOfWindow(QObject const* object) const;
    void lookAt(QKeyEvent const& key);

    QWidget& window;
    qint64 since;        ///< it stands in front, by the clock of TypingGuard
    bool isOver = false; ///< keys count
};
