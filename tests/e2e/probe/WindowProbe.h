#pragma once

#include <QLocalServer>
#include <QObject>

class QJsonObject;
class QLocalSocket;

/// Answers the questions of the end-to-end tests about the windows of the process that it is linked into, over a local
/// socket: a line of JSON each, `{"ask": "cell", "row": 1, "col": 0}`, is answered by a line of JSON. It only looks;
/// what is done to the program is done by keys and the mouse.
class WindowProbe : public QObject {
    Q_OBJECT

public:
    /// Listens at `path`, which must not exist.
    explicit WindowProbe(QString const& path, QObject* parent);

private:
    void onConnection();
    void onReadable(QLocalSocket* socket);
    /// Answers when the program has handled what was on its way to it before, as far as it is known.
    void answerSoon(QLocalSocket* socket, QJsonObject const& question, int turns);

    QLocalServer server;
};
