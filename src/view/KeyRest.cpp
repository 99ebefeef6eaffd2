#include "view/KeyRest.h"

#include "view/TypingGuard.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

KeyRest::KeyRest(QWidget& window) : window(window), since(TypingGuard::now()) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool KeyRest::isNeeded() {
    return FromOutside::isActing() || TypingGuard::isInKeys();
}

bool KeyRest::isOfWindow(QObject const* object) const {
    auto const* const widget = qobject_cast<QWidget const*>(object);
    return widget != nullptr ? widget->window() == &window : object == window.windowHandle();
}

// A key that is held down since before comes again after more than the moment.
void KeyRest::lookAt(QKeyEvent const& key) {
    qint64 const still = TypingGuard::now() - std::max(since, TypingGuard::lastKey());
    isOver = still >= TypingGuard::stillMs && !key.isAutoRepeat();
    if (!isOver)
        TypingGuard::noteKey();
}

bool KeyRest::eventFilter(QObject* watched, QEvent* event) {
    if (isOver || !isOfWindow(watched))
        return false;
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::WindowActivate: since = TypingGuard::now(); return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        lookAt(*static_cast<QKeyEvent const*>(event));
        if (!isOver)
            event->accept(); // so that it is no shortcut either
        return !isOver;
    case QEvent::KeyRelease: return true;
    default: return false;
    }
}
