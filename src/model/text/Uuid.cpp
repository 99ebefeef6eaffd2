#include "model/text/Uuid.h"

#include <QDateTime>
#include <QRandomGenerator64>
#include <QUuid>
#include <QtEndian>

namespace {

constexpr quint64 versionBits = 0x7000;
constexpr quint64 variantBits = 0x8000000000000000;

QUuid timeOrderedUuid() {
    auto* const random = QRandomGenerator64::system();
    quint64 const milliseconds = quint64(QDateTime::currentMSecsSinceEpoch());
    quint64 const high = milliseconds << 16 | versionBits | (random->generate() & 0xfff);
    quint64 const low = variantBits | random->generate() >> 2;
    uchar bytes[16];
    qToBigEndian(high, bytes);
    qToBigEndian(low, bytes + 8);
    return QUuid::fromRfc4122(QByteArrayView(reinterpret_cast<char const*>(bytes), sizeof bytes));
}

} // namespace

QString Utilities::generateUuid(bool braces, bool upperCase, UuidType type) {
    QUuid const uuid = type == UuidType::TimeOrdered ? timeOrderedUuid() : QUuid::createUuid();
    QString const text = uuid.toString(braces ? QUuid::WithBraces : QUuid::WithoutBraces);
    return upperCase ? text.toUpper() : text;
}
