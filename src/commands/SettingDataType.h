#pragma once

/// What kind of value a setting holds. The values are stored in records: never renumber.
enum class SettingDataType {
    Bool = 0,
    Domain = 1,
    Double = 2,
    Encoding = 3,
    Filepath = 4,
    Float = 5,
    Font = 6,
    IntegerFromZero = 7,
    IntegerFromOne = 8,
    Integer = 9,
    LineEnding = 10,
    ParsingStandard = 11,
    RefreshBehavior = 12,
    String = 13,
    Theme = 14,
    UuidType = 15,
};
