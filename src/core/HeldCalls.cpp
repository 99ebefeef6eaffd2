#include "core/HeldCalls.h"

#include <QCoreApplication>
#include <QEventLoopLocker>

#include <memory>
#include <utility>

namespace {

int queues = 0; // that hold calls
std::unique_ptr<QEventLoopLocker> running;

void letEnd() {
    running.reset();
}

void keepRunning() {
    if (++queues == 1 && !running) {
        running = std::make_unique<QEventLoopLocker>();
        qAddPostRoutine(letEnd);
    }
}

void stopKeepingRunning() {
    if (--queues == 0 && running) {
        qRemovePostRoutine(letEnd);
        letEnd();
    }
}

} // namespace

void HeldCalls::add(QObject* context, std::function<void()> call) {
    calls.push_back({context, std::move(call)});
    if (!std::exchange(keepsRunning, true))
        keepRunning();
}

void HeldCalls::carryOutWhile(std::function<bool()> const& isFree) {
    while (!calls.empty() && isFree()) {
        Call const next = std::move(calls.front());
        calls.pop_front();
        if (next.context)
            next.call();
    }
    if (calls.empty() && std::exchange(keepsRunning, false))
        stopKeepingRunning();
}
