#pragma once

#include <QString>

/// What the user has decided for all files of an extension whose dialect is not the one that they are set to be saved
/// in. Kept in the configuration file; who changes their mind takes the line out of it.
namespace DialectChoices {

enum class Choice { Ask, KeepAsInFile, SaveAsSet };

Choice of(QString const& extension);
/// False if it could not be kept.
bool remember(QString const& extension, Choice choice);

} // namespace DialectChoices
