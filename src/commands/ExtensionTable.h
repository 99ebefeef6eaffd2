#pragma once

#include "core/ExtensionData.h"

#include <vector>

/// The table of load and save options per file extension, in the order of its file.
namespace ExtensionTable {

/// The rows that a new user starts with.
std::vector<ExtensionData> defaultRows();

/// The first row of `extension`, compared in lower case; the default record with "," delimiters if there is none.
ExtensionData find(std::vector<ExtensionData> const& rows, QString const& extension);

/// The suffix of a file's name, or "(none)": the key of its row.
QString extensionOfFile(QString const& path);

} // namespace ExtensionTable
