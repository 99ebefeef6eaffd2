#include "app/SingleApplication.h"

#include "app/SingleApplicationPrivate.h"

#include <cstdlib>

SingleApplication::SingleApplication(int& argc, char** argv, bool allowSecondary, QFlags<Mode> options, int timeoutMs,
                                     QString const& userData)
    : QApplication(argc, argv), d(new SingleApplicationPrivate(this, options, userData)) {
    d->openBlock();
    d->waitForConsistentBlock();
    if (!d->block()->primary) {
        d->startPrimary();
    } else if (allowSecondary) {
        d->startSecondary();
        if (options & NotifySecondaryStarts) {
            d->connectToPrimary(timeoutMs, ConnectionType::SecondaryStart);
        }
    } else {
        d->memory.unlock();
        d->connectToPrimary(timeoutMs, ConnectionType::FreshStart);
        delete d;
        std::exit(EXIT_SUCCESS);
    }
    d->memory.unlock();
}

SingleApplication::~SingleApplication() {
    delete d;
}

bool SingleApplication::isPrimary() const {
    return d->server != nullptr;
}

bool SingleApplication::isSecondary() const {
    return !isPrimary();
}

quint32 SingleApplication::instanceId() const {
    return d->instanceNumber;
}

qint64 SingleApplication::primaryPid() const {
    return d->readBlock().primaryPid;
}

QString SingleApplication::primaryUser() const {
    return QString::fromUtf8(d->readBlock().primaryUser);
}

QString SingleApplication::currentUser() const {
    return SingleApplicationPrivate::getUsername();
}

QStringList SingleApplication::userData() const {
    return d->appData;
}

bool SingleApplication::sendMessage(QByteArray const& message, QString workingDirectory, int timeoutMs, SendMode mode) {
    if (isPrimary() || !d->connectToPrimary(timeoutMs, ConnectionType::MessageConnection)) {
        return false;
    }
    return d->writeConfirmedMessage(workingDirectory.toUtf8() + '<' + message, QDeadlineTimer(timeoutMs), mode);
}
