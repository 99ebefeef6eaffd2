// A start of a single-instance program under the control of a test. Arguments: app data, mode flags, whether a
// secondary is allowed (0 or 1). It says on standard output what it is and what it receives, obeys lines on standard
// input, and ends when standard input does, so that none is left when a test dies.

#include "app/SingleApplication.h"

#include <QDeadlineTimer>
#include <QSocketNotifier>
#include <QThread>

#include <cstdio>
#include <string>
#include <unistd.h>

namespace {

void say(QByteArray const& line) {
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

QByteArray roleOf(SingleApplication const& application) {
    return application.isPrimary() ? "primary" : application.isSecondary() ? "secondary" : "alone";
}

/// "send <time-out> <mode> <directory in hex> <message in hex>", "hand-over <message in hex>", "serve <0 or 1>" or
/// "sleep <milliseconds>".
void obey(SingleApplication& application, QByteArray const& line) {
    QList<QByteArray> const words = line.split(' ');
    if (words[0] == "send") {
        bool const sent =
            application.sendMessage(QByteArray::fromHex(words[4]), QString::fromUtf8(QByteArray::fromHex(words[3])),
                                    words[1].toInt(), static_cast<SingleApplication::SendMode>(words[2].toInt()));
        say(sent ? "sent" : "not sent");
    } else if (words[0] == "hand-over") {
        say("handing over");
        bool const taken = application.handOver(QByteArray::fromHex(words[1]), QStringLiteral("/"));
        say(taken ? "taken" : "own, " + roleOf(application));
    } else if (words[0] == "serve") {
        application.setServing(words[1] == "1");
        say(roleOf(application));
    } else if (words[0] == "sleep") {
        say("sleeping");
        QThread::msleep(words[1].toULong());
    }
}

} // namespace

int main(int argc, char** argv) {
    QString const appData = QString::fromUtf8(argv[1]);
    QFlags<SingleApplication::Mode> const options(QFlag(atoi(argv[2])));
    SingleApplication application(argc, argv, atoi(argv[3]) != 0, options, 1000, appData);

    QObject::connect(&application, &SingleApplication::instanceStarted, [] { say("instance started"); });
    QObject::connect(&application, &SingleApplication::receivedMessage, [](quint32 id, QByteArray const& message) {
        say("message " + QByteArray::number(id) + ' ' + message.toHex());
    });
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray pending;
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        char buffer[65536];
        ssize_t const length = ::read(STDIN_FILENO, buffer, sizeof(buffer));
        if (length <= 0) {
            input.setEnabled(false);
            QCoreApplication::quit();
            return;
        }
        pending.append(buffer, length);
        for (qsizetype end = 0; (end = pending.indexOf('\n')) >= 0; pending.remove(0, end + 1)) {
            obey(application, pending.left(end));
        }
    });
    say(roleOf(application) + ' ' + QByteArray::number(application.instanceId()) + ' ' +
        QByteArray::number(application.primaryPid()) + ' ' + application.primaryUser().toUtf8() + ' ' +
        application.currentUser().toUtf8() + ' ' + application.userData().join(',').toUtf8());
    return application.exec();
}
