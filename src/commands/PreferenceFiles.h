#pragma once

#include "commands/SettingType.h"
#include "core/ExtensionData.h"

#include <QString>

#include <vector>

class Commands;
class Settings;
class TableModel;

/// The three tables in which the user keeps preferences: settings, shortcuts and options per file extension. They are
/// CSV files in the preference directory, written, tested and read through a TableModel without a view. Columns are
/// found by their titles, which therefore never change. A function that writes gives false, and leaves the file as it
/// was, if that fails.
namespace PreferenceFiles {

/// How a preference file has stood a test. Only one that was read whole can be found damaged.
enum class FileTest { Sound, Damaged, Unread };

// Settings (PreferenceFiles_Settings.cpp).

/// Fills an empty model with the table of settings.
void makeSettingsTable(TableModel& model, Settings const& settings);
bool makeSettingsFile();
bool makeSettingsFile(Settings const& settings);
/// Whether the file has its row of titles.
FileTest examineSettingsFile();
bool testSettingsFileValidity();
/// Writes the file anew with the settings of this version and the user's values; from defaults if it has no titles. A
/// missing file stays missing.
bool updateSettingsFile();
/// Writes one setting's value into its row; an empty cell if that is the default. A setting without a row is left
/// alone; a file that is missing is made with all values. Empty, or a sentence on why the file could not be written and
/// is as it was.
QString writeSettingToFile(Settings const& settings, SettingType type);
/// Takes the values that the user has filled in.
void addUserSettings(TableModel const& model, Settings& settings);

// Shortcuts (PreferenceFiles_Shortcuts.cpp).

void makeShortcutsTable(TableModel& model, Commands const& commands);
bool makeShortcutsFile();
bool makeShortcutsFile(Commands const& commands);
FileTest examineShortcutsFile();
bool testShortcutsFileValidity();
/// As updateSettingsFile. The user's shortcuts are put in force in `commands`.
bool updateShortcutsFile(Commands& commands);
/// Puts the default shortcuts in force and then the user's. "(none)" removes a shortcut, and so does a text that is
/// none.
void addUserShortcuts(TableModel const& model, Commands& commands);

// Options per file extension (PreferenceFiles_Extensions.cpp).

void makeExtensionsTable(TableModel& model, std::vector<ExtensionData> const& rows);
bool makeExtensionsFile();
FileTest examineExtensionsFile();
bool testExtensionsFileValidity();
bool updateExtensionsFile();
/// The rows of the table, in its order; rows for "csv" and "tsv" follow if they are not among them.
std::vector<ExtensionData> userExtensions(TableModel const& model);

} // namespace PreferenceFiles
