#pragma once

#include "storage/LineDialect.h"

#include <string>
#include <string_view>
#include <vector>

/// Tells cells of which a load might make something else from those that surely come back: all cells that do not come
/// back are among the doubtful ones. Cheap, for it is asked while a file is written; the load decides.
class CellDoubts {
public:
    explicit CellDoubts(LineDialect const& dialect);

    /// Whether all cells are doubtful, for the dialect cannot be read back cell by cell.
    bool all() const { return allCells; }
    /// Whether the cell is doubtful where it is written without quotes. Cells in quotes are not.
    bool withoutQuotes(std::string_view bytes) const;
    /// Whether it is doubtful as the first one of a file, whose bytes might look like a mark.
    static bool asFirst(std::string_view bytes);
    /// Whether its bytes are no whole units, so that all behind it stands between them.
    bool isTorn(std::string_view bytes) const { return (bytes.size() & (unitBytes - 1)) != 0; }

private:
    std::vector<std::string> sequences; ///< a cell that holds one of them is doubtful
    std::string opening;                ///< and so is one that begins with this; empty for none
    std::size_t unitBytes;
    bool allCells;
};
