#pragma once

#include "commands/SettingDataType.h"

#include <QString>
#include <QVariant>

/// How the values of each kind of setting are held and written. Enumerations are held as their numbers, a theme by its
/// name and a font by its family.
namespace SettingValue {

/// The name of the kind of data, "Undefined" for an unknown one.
QString nameOf(SettingDataType type);

/// What a value of the kind is before any text is read.
QVariant initial(SettingDataType type);

/// Takes the value of a text as the settings file has it; an invalid text leaves `value` as it is.
void takeText(SettingDataType type, QString const& text, QVariant& value);

/// The value as the settings file writes it.
QString toText(SettingDataType type, QVariant const& value);

} // namespace SettingValue
