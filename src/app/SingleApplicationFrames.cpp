#include "app/SingleApplicationFrames.h"

#include <QDataStream>
#include <QLocalSocket>

namespace SingleApplicationFrames {

namespace {
// Fixed, so that programs built with different Qt versions understand each other.
constexpr auto streamVersion = QDataStream::Qt_5_6;
static_assert(streamVersion == 17);
} // namespace

QByteArray encodeHeader(quint64 bodySize) {
    QByteArray header;
    QDataStream stream(&header, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << bodySize;
    return header;
}

std::optional<quint64> readHeader(QIODevice& device) {
    if (device.bytesAvailable() < headerSize) {
        return std::nullopt;
    }
    quint64 bodySize = 0;
    QDataStream stream(&device);
    stream.setVersion(streamVersion);
    stream >> bodySize;
    return bodySize;
}

QByteArray encodeInitMessage(InitMessage const& message) {
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << message.serverName << static_cast<quint8>(message.type) << message.instanceId;
    stream << qChecksum(body);
    return body;
}

std::optional<InitMessage> decodeInitMessage(QByteArray const& body) {
    InitMessage message;
    quint8 type = 0;
    quint16 checksum = 0;
    QDataStream stream(body);
    stream.setVersion(streamVersion);
    stream >> message.serverName >> type >> message.instanceId >> checksum;
    if (stream.status() != QDataStream::Ok || !stream.atEnd()) {
        return std::nullopt;
    }
    if (checksum != qChecksum(QByteArrayView(body).chopped(sizeof(checksum)))) {
        return std::nullopt;
    }
    message.type = static_cast<ConnectionType>(type);
    return message;
}

bool writeConfirmedFrame(QLocalSocket& socket, QByteArray const& frame, QDeadlineTimer deadline) {
    if (socket.write(frame) != frame.size()) {
        return false;
    }
    socket.flush();
    // The wait also writes on what the flush could not get rid of.
    while (socket.bytesAvailable() == 0) {
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
            return false;
        }
    }
    char answer = 0;
    return socket.getChar(&answer) && answer == acknowledgement;
}

bool writeConfirmedMessage(QLocalSocket& socket, QByteArray const& body, QDeadlineTimer deadline) {
    return writeConfirmedFrame(socket, encodeHeader(body.size()), deadline) &&
           writeConfirmedFrame(socket, body, deadline);
}

} // namespace SingleApplicationFrames
