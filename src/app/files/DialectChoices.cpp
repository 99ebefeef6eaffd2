#include "app/files/DialectChoices.h"

#include "app/files/ConfigFile.h"
#include "core/PathUtilities.h"

namespace {

constexpr auto keep = "keep";
constexpr auto set = "set";

QString keyOf(QString const& extension) {
    return QStringLiteral("save_dialect/") + (extension.isEmpty() ? QStringLiteral("(none)") : extension);
}

} // namespace

DialectChoices::Choice DialectChoices::of(QString const& extension) {
    QString const kept =
        ConfigFile(Utilities::getConfigFilepath()).read(keyOf(extension)).value_or(QVariant()).toString();
    return kept == QLatin1String(keep) ? Choice::KeepAsInFile
                                       : (kept == QLatin1String(set) ? Choice::SaveAsSet : Choice::Ask);
}

bool DialectChoices::remember(QString const& extension, Choice choice) {
    QString const word = QLatin1String(choice == Choice::KeepAsInFile ? keep : set);
    return ConfigFile(Utilities::getConfigFilepath()).write(keyOf(extension), word);
}
