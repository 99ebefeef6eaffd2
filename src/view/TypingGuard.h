#pragma once

#include <QtGlobal>

#include <functional>

class QObject;

/// Knows whether the user is in the middle of text, whose keys must not reach anything that comes from outside: a
/// question, another table, another window. Keys have to be still for a moment, but for shortcuts; while a text is open
/// that nobody has entered yet, all keys and the mouse for longer. On the main thread only.
class TypingGuard {
public:
    static constexpr int stillMs = 500;
    static constexpr int idleMs = 2000; ///< with an open text

    struct Clock {
        std::function<qint64()> now; ///< in milliseconds from any instant on
        std::function<void(int ms, std::function<void()> call)> after;
    };
    /// Takes another clock than that of the system, and forgets the keys; an empty one is that of the system.
    static void setClock(Clock clock);
    static qint64 now();

    /// Looks at all keys of the program from now on. `isOpen` tells for as long as `owner` lives whether a text is open
    /// there.
    static void addText(QObject* owner, std::function<bool()> isOpen);
    static bool isTyping();
    /// When the last key came, by the clock.
    static qint64 lastKey();
    /// Whether a key came just now, and neither a shortcut nor the mouse after it: what opens by it may meet more keys.
    static bool isInKeys();
    /// A key that was kept from everybody.
    static void noteKey();

    /// Carries out what came from outside: at once if the user is not typing and nothing is held, else later and in
    /// order, as ModalHold::whenFree does.
    static void whenStill(QObject* context, std::function<void()> call);
};

/// Stands while something is carried out that the user did not ask for just now.
class FromOutside {
public:
    FromOutside();
    ~FromOutside();
    FromOutside(FromOutside const&) = delete;
    FromOutside& operator=(FromOutside const&) = delete;

    static bool isActing();
};
