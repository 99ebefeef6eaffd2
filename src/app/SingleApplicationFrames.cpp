#include "app/SingleApplicationFrames.h"

#include <QDataStream>

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

bool isTakeable(QByteArray const& message) {
    return static_cast<quint64>(message.size()) <= maximumMessageSize && message.count(fieldSeparator) < maximumFields;
}

} // namespace SingleApplicationFrames
