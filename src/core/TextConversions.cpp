#include "core/TextConversions.h"

bool Utilities::convertStringToBool(QString const& text, bool& value) {
    QString const word = text.toLower().trimmed();
    bool const isTrue = word == QLatin1String("true");
    if (!isTrue && word != QLatin1String("false"))
        return false;
    value = isTrue;
    return true;
}
