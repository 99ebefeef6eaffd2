#include "commands/SettingValue.h"

#include "commands/RefreshBehavior.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "core/TextConversions.h"
#include "core/UuidType.h"

#include <array>
#include <climits>

namespace {

using TakeText = void (*)(QString const& text, QVariant& value);
using ToText = QString (*)(QVariant const& value);

struct DataTypeRow {
    char const* name;
    TakeText takeText;
    ToText toText;
};

void takeBool(QString const& text, QVariant& value) {
    bool taken = value.toBool();
    Utilities::convertStringToBool(text, taken);
    value = taken;
}

template <int smallest>
void takeInteger(QString const& text, QVariant& value) {
    bool valid = false;
    int const number = text.trimmed().toInt(&valid);
    if (valid && number >= smallest) {
        value = number;
    }
}

void takeNumber(QString const& text, QVariant& value) {
    bool valid = false;
    double const number = text.trimmed().toDouble(&valid);
    if (valid) {
        value = number;
    }
}

void takeAnyText(QString const& text, QVariant& value) {
    value = text;
}

void takeSomeText(QString const& text, QVariant& value) {
    if (!text.isEmpty()) {
        value = text;
    }
}

void takeName(QString const& text, QVariant& value) {
    takeSomeText(text.trimmed(), value);
}

/// Takes an enumeration whose conversion from text gives `Invalid` for what it does not know.
template <class Enumeration, Enumeration (*convert)(QString const&)>
void takeEnumeration(QString const& text, QVariant& value) {
    Enumeration const taken = convert(text);
    if (taken != Enumeration::Invalid) {
        value = static_cast<int>(taken);
    }
}

// Indexed by RefreshBehavior.
constexpr std::array refreshWords = {"refresh", "ask", "ignore"};

void takeRefreshBehavior(QString const& text, QVariant& value) {
    QString const word = text.trimmed().toLower();
    for (std::size_t i = 0; i < refreshWords.size(); ++i) {
        if (word == QLatin1String(refreshWords[i])) {
            value = static_cast<int>(i);
        }
    }
}

template <class Enumeration, QString (*convert)(Enumeration)>
QString enumerationText(QVariant const& value) {
    return convert(static_cast<Enumeration>(value.toInt()));
}

QString boolText(QVariant const& value) {
    return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
}

QString plainText(QVariant const& value) {
    return value.toString();
}

QString lineEndingName(LineEndingType type) {
    return Utilities::convertLineEndingTypeToShortString(type);
}

QString refreshWord(RefreshBehavior behavior) {
    auto const index = static_cast<std::size_t>(behavior);
    return index < refreshWords.size() ? QLatin1String(refreshWords[index]) : QLatin1String();
}

// Indexed by SettingDataType.
constexpr std::array<DataTypeRow, 16> dataTypes = {{
    {"true|false", takeBool, boolText},
    {"domain", takeAnyText, plainText},
    {"double", takeNumber, plainText},
    {"encoding", takeEnumeration<EncodingType, Utilities::convertEncodingStringToType>,
     enumerationText<EncodingType, Utilities::convertEncodingTypeToString>},
    {"filepath", takeAnyText, plainText},
    {"float", takeNumber, plainText},
    {"font", takeSomeText, plainText},
    {"integer >= 0", takeInteger<0>, plainText},
    {"integer >= 1", takeInteger<1>, plainText},
    {"integer", takeInteger<INT_MIN>, plainText},
    {"line ending", takeEnumeration<LineEndingType, Utilities::convertLineEndingStringToType>,
     enumerationText<LineEndingType, lineEndingName>},
    {"parsing", takeEnumeration<ParsingStandard, Utilities::convertParsingStringToStandard>,
     enumerationText<ParsingStandard, Utilities::convertParsingStandardToString>},
    {"refresh|ignore|ask", takeRefreshBehavior, enumerationText<RefreshBehavior, refreshWord>},
    {"string", takeAnyText, plainText},
    {"theme", takeName, plainText},
    {"v4|v7", takeEnumeration<UuidType, Utilities::convertUuidStringToType>,
     enumerationText<UuidType, Utilities::convertUuidTypeToString>},
}};

DataTypeRow const* rowOf(SettingDataType type) {
    auto const index = static_cast<std::size_t>(type);
    return index < dataTypes.size() ? &dataTypes[index] : nullptr;
}

} // namespace

QString SettingValue::nameOf(SettingDataType type) {
    DataTypeRow const* const row = rowOf(type);
    return QLatin1String(row != nullptr ? row->name : "Undefined");
}

QVariant SettingValue::initial(SettingDataType type) {
    return type == SettingDataType::LineEnding ? QVariant(static_cast<int>(Utilities::getLineEndingFromPlatform()))
                                               : QVariant();
}

void SettingValue::takeText(SettingDataType type, QString const& text, QVariant& value) {
    if (DataTypeRow const* const row = rowOf(type)) {
        row->takeText(text, value);
    }
}

QString SettingValue::toText(SettingDataType type, QVariant const& value) {
    DataTypeRow const* const row = rowOf(type);
    return row != nullptr ? row->toText(value) : QString();
}
