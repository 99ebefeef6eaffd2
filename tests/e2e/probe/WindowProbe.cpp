#include "e2e/probe/WindowProbe.h"

#include "e2e/probe/WindowAnswers.h"

#include <QCoreApplication>
#include <QCursor>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

namespace {

/// Turns of the event loop before an answer: input, what it posts, and what that posts.
constexpr int turnsBeforeAnswer = 3;

} // namespace

WindowProbe::WindowProbe(QString const& path, QObject* parent) : QObject(parent) {
    connect(&server, &QLocalServer::newConnection, this, &WindowProbe::onConnection);
    if (!server.listen(path))
        qFatal("The probe cannot listen at %s: %s", qPrintable(path), qPrintable(server.errorString()));
}

void WindowProbe::onConnection() {
    QLocalSocket* const socket = server.nextPendingConnection();
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] { onReadable(socket); });
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
}

void WindowProbe::onReadable(QLocalSocket* socket) {
    while (socket->canReadLine()) {
        QJsonObject const question = QJsonDocument::fromJson(socket->readLine()).object();
        QCursor::pos(); // asks the display, which by then has sent all input that was there before
        answerSoon(socket, question, turnsBeforeAnswer);
    }
}

void WindowProbe::answerSoon(QLocalSocket* socket, QJsonObject const& question, int turns) {
    QTimer::singleShot(0, socket, [this, socket, question, turns] {
        if (turns > 1) {
            answerSoon(socket, question, turns - 1);
            return;
        }
        socket->write(QJsonDocument(WindowAnswers::answer(question)).toJson(QJsonDocument::Compact) + '\n');
        socket->flush();
    });
}

namespace {

// A process that hands its files over and ends never gets as far as its event loop, and so leaves the socket alone.
void startProbe() {
    QString const path = qEnvironmentVariable("GRIDWRIGHT_PROBE");
    if (!path.isEmpty())
        QTimer::singleShot(0, qApp, [path] { new WindowProbe(path, qApp); });
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startProbe)
