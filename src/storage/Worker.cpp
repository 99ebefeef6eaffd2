#include "storage/Worker.h"

#include <QMutexLocker>

#include <utility>

Worker::Worker(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex, QObject* parent) : QObject(parent) {
    setCancelPointers(std::move(flag), std::move(mutex));
}

void Worker::setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex) {
    cancelFlag = std::move(flag);
    cancelMutex = std::move(mutex);
}

void Worker::setProgressBounds(int minimum, int maximum) {
    progressMin = minimum;
    progressMax = maximum;
}

bool Worker::isCanceled() const {
    if (!cancelFlag || !cancelMutex)
        return false;
    QMutexLocker const lock(cancelMutex.get());
    return *cancelFlag;
}

bool Worker::updateProgress(float fraction) {
    if (isCanceled())
        return false;
    emit updateProgressSignal(fraction * static_cast<float>(progressMax - progressMin) +
                              static_cast<float>(progressMin));
    updateTimer.start();
    return true;
}
