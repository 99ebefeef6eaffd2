#pragma once

#include <QString>

#include <climits>

/// What a table has of its file after a load.
enum class LoadEnd {
    Whole, ///< all of it
    Part,  ///< its beginning; what follows could not be read, or not be held
    None,  ///< nothing: the file could not be opened
};

struct LoadResult {
    LoadEnd end = LoadEnd::Whole;
    QString reason;            ///< a sentence for the user, empty after a whole load
    bool beyondLimits = false; ///< a part because the file goes on beyond the limits of the load
    qint64 bytes = 0;          ///< of the file that a part holds
};

/// How many rows and columns a load takes. Of a file with more it takes those up to there.
struct LoadLimits {
    int rows = INT_MAX - 1;
    int columns = INT_MAX - 1;
};
