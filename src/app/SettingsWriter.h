#pragma once

#include "commands/Settings.h"

#include <QString>

#include <map>

/// Writes what a window's user sets into the settings file. What could not be written, or has no row there, stays in
/// force in the window, and is written with the next setting that is, unless the file has got another value for it by
/// then.
class SettingsWriter {
public:
    /// Writes the value of `type`, and those that are still to be written. Empty, or a sentence on why it failed.
    QString write(Settings const& settings, SettingType type);
    /// Puts what could not be written over what was read from the file.
    void restore(Settings& read);

private:
    struct Unwritten {
        Settings inForce;
        Settings inFile; ///< when the write failed
    };
    std::map<SettingType, Unwritten> unwritten;
};
