#include "app/HandOverMessage.h"

namespace {
constexpr QLatin1Char separator('<');
}

QByteArray HandOverMessage::joinArguments(QStringList const& arguments) {
    return arguments.join(separator).toUtf8();
}

HandOverMessage HandOverMessage::parse(QByteArray const& message) {
    QStringList fields = QString::fromUtf8(message).split(separator);
    HandOverMessage result;
    result.workingDirectory = fields.takeFirst();
    result.arguments = std::move(fields);
    return result;
}
