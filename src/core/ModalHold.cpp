#include "core/ModalHold.h"

#include <QCoreApplication>
#include <QEventLoopLocker>
#include <QPointer>

#include <deque>
#include <memory>

namespace {

struct HeldCall {
    QPointer<QObject> context;
    std::function<void()> call;
};

int holds = 0;
std::deque<HeldCall> calls;
std::unique_ptr<QEventLoopLocker> running; // while calls wait

void dropCalls() {
    calls.clear();
    running.reset();
}

// A call may wait for the user itself. Others come in the loop of that hold then, and their turn is after this one.
void carryOut() {
    while (holds == 0 && !calls.empty()) {
        HeldCall const next = std::move(calls.front());
        calls.pop_front();
        if (next.context)
            next.call();
    }
    if (calls.empty() && running) {
        qRemovePostRoutine(dropCalls);
        running.reset();
    }
}

void carryOutLater() {
    QMetaObject::invokeMethod(QCoreApplication::instance(), carryOut, Qt::QueuedConnection);
}

} // namespace

ModalHold::ModalHold() {
    ++holds;
}

ModalHold::~ModalHold() {
    --holds;
    if (holds == 0 && !calls.empty())
        carryOutLater();
}

bool ModalHold::isOpen() {
    return holds > 0;
}

void ModalHold::whenFree(QObject* context, std::function<void()> call) {
    if (holds == 0 && calls.empty()) {
        call();
        return;
    }
    calls.push_back({context, std::move(call)});
    if (!running) {
        running = std::make_unique<QEventLoopLocker>();
        qAddPostRoutine(dropCalls);
    }
}
