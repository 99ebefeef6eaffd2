#pragma once

#include "view/TypingGuard.h"

#include <QMultiMap>

#include <functional>
#include <utility>

/// The clock of TypingGuard while it lives, which stands still but for pass().
class HeldClock {
public:
    HeldClock() {
        TypingGuard::setClock({[this] {
                                   ++reads;
                                   return time;
                               },
                               [this](int ms, std::function<void()> call) { timers.insert(time + ms, call); }});
    }
    ~HeldClock() { TypingGuard::setClock({}); }

    void pass(int ms) {
        qint64 const end = time + ms;
        while (!timers.isEmpty() && timers.firstKey() <= end) {
            time = timers.firstKey();
            timers.take(time)();
        }
        time = end;
    }

    int reads = 0; ///< how often somebody has asked

private:
    qint64 time = 1000000;
    QMultiMap<qint64, std::function<void()>> timers;
};
