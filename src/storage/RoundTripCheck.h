#pragma once

#include "storage/ChangedCells.h"
#include "storage/LineWriter.h"
#include "storage/Reading.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Holds lines against what a load of the file would make of them: writes them once more, has them read by the scanner
/// of the load and compares its cells with those that were to be written. A line that comes back leaves the scanner at
/// the start of the next one, so that a line need not know those before it, and lines without doubts need not be shown.
/// Lines are read many at a time; the memory is that of a stretch of the file, or of a line if it is longer.
class RoundTripCheck {
public:
    /// The start of the file is told by what was written before the first line, and by the length of the mark that a
    /// load finds there.
    struct FileStart {
        std::string mark;
        std::function<std::size_t(std::string_view)> markLength;
    };

    RoundTripCheck(LineDialect const& dialect, Reading reading, FileStart start);

    /// Begins the line `number` of the file, from 0 on. What it loses is told of (row, col) if it has no cells.
    void beginLine(int number, int row, int col);
    void cell(int row, int col, std::string_view bytes);
    void endLine();
    /// To be called once, when the file has got so many lines.
    void finish(int lines);

    /// Whether there need be no more lines.
    bool isFull() const { return changed.size() >= ChangedCells::most; }
    bool foundChanges() const { return !changed.empty(); }
    ChangedCells changes() const;

private:
    using Place = std::pair<int, int>;
    struct Cell {
        Place place;
        std::size_t begin; ///< in the text
        std::size_t end;   ///< in the cells' bytes
    };
    struct Line {
        int number;
        Place place;
        std::size_t begin; ///< in the text
        std::size_t firstCell;
    };
    struct Loaded {
        CellRows rows;
        std::size_t columns = 0;
    };

    /// How cells come back.
    struct Return {
        bool same;
        bool inPlace;
    };

    std::size_t cellsEnd(std::size_t line) const;
    std::size_t textEnd(std::size_t line) const;
    std::string_view cellBytes(std::size_t index) const;
    void load(Loaded& loaded, std::size_t from, std::size_t to, bool startsFile, bool endsFile) const;
    bool isRow(Loaded const& loaded, std::size_t row, std::size_t first, std::size_t end,
               std::string_view more = {}) const;
    Return returnOf(std::size_t line, std::size_t first, std::size_t end, bool endsFile) const;
    bool comeBack(std::size_t line, std::size_t first, std::size_t end, bool endsFile) const;
    bool linesComeBack(std::size_t count) const;
    void checkHeld(std::size_t lines);
    void checkLine(std::size_t line, bool endsFile);

    Reading const reading;
    FileStart const start;
    std::string const sentinel; ///< a line behind those that are read shows where the scanner has got to
    std::size_t const delimiterBytes;
    bool shifts; ///< cells are closed when they are written
    LineWriter writer;

    std::string text; ///< of the lines that are held
    std::string bytes;
    std::vector<Line> lines;
    std::vector<Cell> cells;
    std::vector<Place> changed;
    bool moves = false;
    bool goesOn = false;
};
