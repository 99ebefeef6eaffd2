#pragma once

#include "core/Enumerations.h"

#include <QMetaType>
#include <QString>

#include <utility>

/// How files of one extension are loaded and saved: one row of the user's table of file extensions.
struct ExtensionData {
    ExtensionData() = default;
    ExtensionData(QString extension, QString delimiter, QString saveDelimiter)
        : extension(std::move(extension)), delimiter(std::move(delimiter)), saveDelimiter(std::move(saveDelimiter)) {}

    QString extension;           ///< lower case without a dot, "(none)" for files without an extension
    QString delimiter = ",";     ///< for loading; may be "(auto)"
    QString saveDelimiter = ","; ///< for saving; may be "(auto)"
    LineEndingType lineEnding = LineEndingType::Unix;
    EncodingType encoding = EncodingType::Utf8;
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
};

Q_DECLARE_METATYPE(ExtensionData)
