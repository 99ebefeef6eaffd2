#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

class QIODevice;

// What two starts of the program say to each other over their local socket. A message goes as two frames, a header
// with the length of the body and the body itself; the receiver answers each with one byte.

/// Why a client connects; one byte on the wire.
enum class ConnectionType : quint8 {
    NoConnection = 0,
    FreshStart = 1,        ///< A start that is not allowed to be a secondary, and exits.
    SecondaryStart = 2,    ///< A secondary has started.
    MessageConnection = 3, ///< Messages follow.
};

/// The first message on every connection: proves that the client is a start of this program.
struct InitMessage {
    QByteArray serverName; ///< Latin-1.
    ConnectionType type = ConnectionType::NoConnection;
    quint32 instanceId = 0;
};

namespace SingleApplicationFrames {

inline constexpr qint64 headerSize = 8;
inline constexpr char acknowledgement = 10;
/// The longest bodies that are taken. The arguments of a process are limited to 6 MiB by the system.
inline constexpr quint64 maximumInitSize = 1024;
inline constexpr quint64 maximumMessageSize = 8 * 1024 * 1024;
/// The most fields that a message may have; between fields stands one separator.
inline constexpr qsizetype maximumFields = 10000;
inline constexpr char fieldSeparator = '<';

/// Whether a primary takes this message, by its length and the number of its fields.
bool isTakeable(QByteArray const& message);

/// The header frame: the length as a big-endian quint64.
QByteArray encodeHeader(quint64 bodySize);
/// Takes a header from the device and gives the length in it; nothing is taken while fewer than 8 bytes are there.
std::optional<quint64> readHeader(QIODevice& device);

/// Server name, type and instance number, and the qChecksum of these bytes.
QByteArray encodeInitMessage(InitMessage const& message);
/// The message in a body; empty if the body is cut, too long or does not fit its checksum.
std::optional<InitMessage> decodeInitMessage(QByteArray const& body);

} // namespace SingleApplicationFrames
