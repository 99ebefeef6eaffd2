#include "app/prompts/NumberAnswer.h"

#include <QCoreApplication>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("Prompts", text);
}

} // namespace

QString NumberAnswer::complaint(QString const& text, int least, int most) {
    bool isNumber = false;
    int const number = text.trimmed().toInt(&isNumber);
    if (isNumber && number > most)
        return tr("Must be a whole number %1 or less.").arg(most);
    if (isNumber && number >= least)
        return {};
    return !isNumber && least == unbounded ? tr("Must be a whole number.")
                                           : tr("Must be a whole number %1 or greater.").arg(least);
}
