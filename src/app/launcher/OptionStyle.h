#pragma once

#include <QString>

/// The texts by which the rows of a list get the colours of the theme.
struct OptionStyle {
    QString sheet; ///< of all rows of the list
    QString plainStart;
    QString plainEnd;
    QString matchStart; ///< around each run of matched characters
    QString matchEnd;
};
