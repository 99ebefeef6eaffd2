#include "core/ModalHold.h"

#include "core/HeldCalls.h"

#include <QCoreApplication>

#include <utility>

namespace {

int holds = 0;
HeldCalls calls;

void carryOut() {
    calls.carryOutWhile([] { return holds == 0; });
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
    if (holds == 0 && !calls.isEmpty())
        carryOutLater();
}

bool ModalHold::isOpen() {
    return holds > 0;
}

void ModalHold::whenFree(QObject* context, std::function<void()> call) {
    if (holds == 0 && calls.isEmpty()) {
        call();
        return;
    }
    calls.add(context, std::move(call));
}
