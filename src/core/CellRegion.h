#pragma once

#include <cstdint>
#include <utility>
#include <vector>

/// Cells from (top, left) to (bottom, right), the ends included; without cells if an end lies before its start.
struct CellRect {
    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;

    bool isEmpty() const { return bottom < top || right < left; }
    bool operator==(CellRect const&) const = default;
};

/// A set of cells, whatever its shape, that costs by rectangles and not by cells: bands of rows with the runs of
/// columns in each. The form is canonical, so equal sets compare equal and a rectangle is always one band with one run.
/// A plain value; the index space is the owner's.
class CellRegion {
public:
    CellRegion() = default;
    explicit CellRegion(CellRect const& rect);
    /// Cells (row, column) in any order, with or without repetitions.
    static CellRegion ofCells(std::vector<std::pair<int, int>> cells);
    /// Rectangles in any order, which may overlap.
    static CellRegion ofRects(std::vector<CellRect> const& rects);

    bool isEmpty() const { return bands.empty(); }
    bool isRect() const { return runs.size() == 1; }
    std::int64_t count() const;
    bool contains(int row, int col) const;
    /// The smallest rectangle around all cells; an empty one without cells.
    CellRect bounds() const;
    /// Disjoint rectangles that make up the set, from top to bottom and then from left to right.
    std::vector<CellRect> rects() const;
    /// The first cell in order of rows and then columns. Needs a cell.
    std::pair<int, int> first() const { return {bands.front().top, runs.front().first}; }
    /// The cells of one row or column.
    CellRegion row(int row) const;
    CellRegion col(int col) const;

    CellRegion operator|(CellRegion const& other) const;
    CellRegion operator&(CellRegion const& other) const;
    CellRegion operator-(CellRegion const& other) const;
    CellRegion moved(int rows, int cols) const;
    /// Cells outside of `bounds` are put on the cell of it that is nearest.
    CellRegion clampedTo(CellRect const& bounds) const;
    bool operator==(CellRegion const&) const = default;

private:
    struct Run {
        int first;
        int last;
        bool operator==(Run const&) const = default;
    };
    using Runs = std::vector<Run>;
    struct Band {
        int top;
        int bottom;
        std::size_t begin; ///< of its runs
        std::size_t end;
        bool operator==(Band const&) const = default;
    };

    template <class Keep>
    static CellRegion combine(CellRegion const& a, CellRegion const& b, Keep keep);
    template <class Keep>
    static void combineRuns(Runs& out, Run const* a, Run const* aEnd, Run const* b, Run const* bEnd, Keep keep);
    static CellRegion unite(std::vector<CellRect> const& rects, std::size_t begin, std::size_t end);
    void append(int top, int bottom, Runs const& bandRuns);

    std::vector<Band> bands;
    Runs runs;
};
