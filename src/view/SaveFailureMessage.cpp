#include "view/SaveFailureMessage.h"

QString buildSaveFailureMessage(QString const& path, QString const& reason) {
    QString message = QStringLiteral("File failed to save.");
    if (!path.isEmpty())
        message += QStringLiteral("\n\nFile: %1").arg(path);
    if (!reason.isEmpty())
        message += QStringLiteral("\nReason: %1").arg(reason);
    return message;
}
