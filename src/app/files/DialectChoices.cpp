#include "app/files/DialectChoices.h"

#include "core/PathUtilities.h"

#include <QSettings>

namespace {

constexpr auto keep = "keep";
constexpr auto set = "set";

QString keyOf(QString const& extension) {
    return QStringLiteral("save_dialect/") + (extension.isEmpty() ? QStringLiteral("(none)") : extension);
}

} // namespace

DialectChoices::Choice DialectChoices::of(QString const& extension) {
    QString const kept =
        QSettings(Utilities::getConfigFilepath(), QSettings::IniFormat).value(keyOf(extension)).toString();
    return kept == QLatin1String(keep) ? Choice::KeepAsInFile
                                       : (kept == QLatin1String(set) ? Choice::SaveAsSet : Choice::Ask);
}

bool DialectChoices::remember(QString const& extension, Choice choice) {
    QSettings file(Utilities::getConfigFilepath(), QSettings::IniFormat);
    file.setValue(keyOf(extension), QLatin1String(choice == Choice::KeepAsInFile ? keep : set));
    file.sync();
    return file.status() == QSettings::NoError;
}
