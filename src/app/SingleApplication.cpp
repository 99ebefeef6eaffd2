#include "app/SingleApplication.h"

#include "app/InstanceBlock.h"
#include "app/InstanceClient.h"
#include "app/InstanceServer.h"
#include "app/SingleApplicationPrivate.h"

#include <cstdlib>

namespace {

QByteArray bodyOf(QByteArray const& message, QString const& workingDirectory) {
    return workingDirectory.toUtf8() + SingleApplicationFrames::fieldSeparator + message;
}

} // namespace

SingleApplication::SingleApplication(int& argc, char** argv, bool allowSecondary, QFlags<Mode> options, int timeoutMs,
                                     QString const& userData)
    : QApplication(argc, argv), d(new SingleApplicationPrivate(this, options, userData)) {
    d->enter(SingleApplicationPrivate::Record::Believed);
    if (!isSecondary()) {
        return;
    }
    if (!allowSecondary) {
        d->client->connectToPrimary(QDeadlineTimer(timeoutMs), ConnectionType::FreshStart);
        delete d;
        std::exit(EXIT_SUCCESS);
    }
    if (options & NotifySecondaryStarts) {
        d->client->connectToPrimary(QDeadlineTimer(timeoutMs), ConnectionType::SecondaryStart);
    }
}

SingleApplication::~SingleApplication() {
    delete d;
}

bool SingleApplication::isPrimary() const {
    return d->role == InstanceRole::Primary;
}

bool SingleApplication::isSecondary() const {
    return d->role == InstanceRole::Secondary;
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
    if (!isSecondary() ||
        !d->client->writeConfirmedMessage(bodyOf(message, workingDirectory), QDeadlineTimer(timeoutMs))) {
        return false;
    }
    if (mode == SendAndWaitForPrimaryExit) {
        d->client->waitForPrimaryExit();
    }
    return true;
}

bool SingleApplication::handOver(QByteArray const& message, QString const& workingDirectory) {
    constexpr int tryMs = 100;
    constexpr int patienceMs = 10000;
    QDeadlineTimer patience(SingleApplicationFrames::isTakeable(bodyOf(message, workingDirectory)) ? patienceMs : 0);
    while (isSecondary() && !patience.hasExpired()) {
        if (sendMessage(message, workingDirectory, tryMs)) {
            return true;
        }
        if (!d->client->isPrimaryThere()) {
            d->leave();
            d->enter(SingleApplicationPrivate::Record::Checked);
        }
    }
    if (isSecondary()) {
        if (d->client->withdraw()) {
            return true;
        }
        qCritical("SingleApplication: The running process does not take the message. Starting beside it.");
        d->leave();
    }
    return false;
}

void SingleApplication::setServing(bool serving) {
    if (!serving) {
        d->served = d->served || isPrimary();
        d->leave();
        return;
    }
    if (d->served && !isPrimary()) {
        d->served = false;
        d->enter(SingleApplicationPrivate::Record::Checked);
        if (isSecondary()) { // another start has been faster, and this process has work of its own
            d->leave();
        }
    }
}
