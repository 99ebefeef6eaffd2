#pragma once

#include "core/Enumerations.h"

#include <QByteArray>
#include <QString>

#include <string_view>

class QTextCodec;

/// Qt's codec for the cells of one encoding, put right where it differs from what other programs read and write. What
/// still differs is told in docs/ENCODINGS.md.
class LegacyCodec {
public:
    /// No codec for UTF-8 and ISO 8859-1, which need none.
    explicit LegacyCodec(EncodingType encoding);

    bool isThere() const { return codec != nullptr; }
    /// Each byte that means nothing, an unfinished character at the end too, reads as a replacement character.
    QString decode(std::string_view bytes) const;
    /// Of a text that the encoding cannot carry, bytes that read as another text.
    QByteArray encode(QString const& text) const;

private:
    EncodingType encoding;
    QTextCodec* codec;
};
