#pragma once

#include <functional>

class QObject;

/// Stands for as long as an event loop runs inside of a function: around each question and dialog that is waited for,
/// and around each wait for a thread. Whoever is down the stack holds tables, windows and indexes that must not change
/// under it, so what comes from outside meanwhile (later starts of the program, changes of files, closings of windows)
/// goes through whenFree. Holds nest. On the main thread only.
class ModalHold {
public:
    ModalHold();
    ~ModalHold();
    ModalHold(ModalHold const&) = delete;
    ModalHold& operator=(ModalHold const&) = delete;

    /// Whether some function further down the stack waits.
    static bool isOpen();
    /// Carries `call` out: at once if nothing is held, else from the program's own event loop after the last hold has
    /// ended. Calls keep their order and are dropped with `context`. The program does not end while one waits.
    static void whenFree(QObject* context, std::function<void()> call);
};
