#pragma once

#include "storage/ScannerFile.h"

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QSemaphore>
#include <QThread>
#include <QWaitCondition>

#include <cerrno>
#include <unistd.h>

/// Lets a test hold loads in the middle of a file, or break them there. Has to outlive the loads.
class HeldReads {
public:
    HeldReads() {
        ScannerFile::setReader([this](int file, void* to, std::size_t bytes) { return read(file, to, bytes); });
    }
    ~HeldReads() { ScannerFile::setReader({}); }

    /// From now on loads in the background wait before they read.
    void hold() {
        QMutexLocker const lock(&mutex);
        holding = true;
    }
    /// Waits until a load waits.
    void waitUntilHeld() { held.acquire(); }
    void release() {
        QMutexLocker const lock(&mutex);
        holding = false;
        released.wakeAll();
    }
    /// Every read after the next `reads` ones fails; -1 for none.
    void failAfter(int reads) {
        QMutexLocker const lock(&mutex);
        readsBeforeFailure = reads;
    }

private:
    ssize_t read(int file, void* to, std::size_t bytes) {
        QMutexLocker const lock(&mutex);
        // The settings file may be read meanwhile, on the thread that is to release the loads.
        bool const inBackground = QThread::currentThread() != QCoreApplication::instance()->thread();
        if (holding && inBackground)
            held.release();
        while (holding && inBackground)
            released.wait(&mutex);
        if (readsBeforeFailure == 0) {
            errno = EIO;
            return -1;
        }
        if (readsBeforeFailure > 0)
            --readsBeforeFailure;
        return ::read(file, to, bytes);
    }

    QMutex mutex;
    QWaitCondition released;
    QSemaphore held;
    bool holding = false;
    int readsBeforeFailure = -1;
};
