#pragma once

/// What happens to a table when another program changes its file. The values are stored in records: never renumber.
enum class RefreshBehavior {
    Refresh = 0, ///< read the file again
    Ask = 1,
    Ignore = 2,
};
