#include "core/CellRegion.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <limits>

namespace {

constexpr std::int64_t nowhere = std::numeric_limits<std::int64_t>::max();

/// One of the two sides of a combination: where a piece begins or ends, seen from a position on.
struct Side {
    bool holds;          ///< the piece has begun
    std::int64_t change; ///< the next position at which that is different
};

Side sideAt(std::int64_t position, bool present, std::int64_t first, std::int64_t last) {
    if (!present)
        return {false, nowhere};
    return position >= first ? Side{true, last + 1} : Side{false, first};
}

} // namespace

CellRegion::CellRegion(CellRect const& rect) {
    if (!rect.isEmpty())
        append(rect.top, rect.bottom, {{rect.left, rect.right}});
}

CellRegion CellRegion::ofCells(std::vector<std::pair<int, int>> cells) {
    if (!std::is_sorted(cells.begin(), cells.end()))
        std::sort(cells.begin(), cells.end());
    CellRegion region;
    Runs band;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        auto const [row, col] = cells[i];
        if (band.empty() || col > band.back().last + 1)
            band.push_back({col, col});
        else
            band.back().last = std::max(band.back().last, col);
        if (i + 1 == cells.size() || cells[i + 1].first != row) {
            region.append(row, row, band);
            band.clear();
        }
    }
    return region;
}

CellRegion CellRegion::ofRects(std::vector<CellRect> const& rects) {
    // Most come in order: each band of them lies below the one before, or goes on from it in the same columns.
    CellRegion region;
    Runs runsBeside;
    for (std::size_t i = 0; i < rects.size();) {
        auto const [top, left, bottom, right] = rects[i];
        runsBeside.clear();
        for (; i < rects.size() && rects[i].top == top && rects[i].bottom == bottom; ++i) {
            CellRect const& rect = rects[i];
            if (rect.isEmpty() || (!runsBeside.empty() && rect.left < runsBeside.back().first))
                return unite(rects, 0, rects.size());
            if (!runsBeside.empty() && rect.left <= std::int64_t(runsBeside.back().last) + 1)
                runsBeside.back().last = std::max(runsBeside.back().last, rect.right);
            else
                runsBeside.push_back({rect.left, rect.right});
        }
        Band* const above = region.bands.empty() ? nullptr : &region.bands.back();
        if (!above || top > above->bottom)
            region.append(top, bottom, runsBeside);
        else if (top >= above->top && std::equal(region.runs.begin() + std::ptrdiff_t(above->begin), region.runs.end(),
                                                 runsBeside.begin(), runsBeside.end()))
            above->bottom = std::max(above->bottom, bottom);
        else
            return unite(rects, 0, rects.size());
    }
    return region;
}

CellRegion CellRegion::unite(std::vector<CellRect> const& rects, std::size_t begin, std::size_t end) {
    if (begin == end)
        return {};
    if (begin + 1 == end)
        return CellRegion(rects[begin]);
    std::size_t const middle = begin + (end - begin) / 2;
    return unite(rects, begin, middle) | unite(rects, middle, end);
}

std::int64_t CellRegion::count() const {
    std::int64_t cells = 0;
    for (Band const& band : bands) {
        std::int64_t width = 0;
        for (std::size_t run = band.begin; run < band.end; ++run)
            width += std::int64_t(runs[run].last) - runs[run].first + 1;
        cells += width * (std::int64_t(band.bottom) - band.top + 1);
    }
    return cells;
}

bool CellRegion::contains(int row, int col) const {
    auto const band =
        std::lower_bound(bands.begin(), bands.end(), row, [](Band const& each, int at) { return each.bottom < at; });
    if (band == bands.end() || band->top > row)
        return false;
    auto const end = runs.begin() + std::ptrdiff_t(band->end);
    auto const run = std::lower_bound(runs.begin() + std::ptrdiff_t(band->begin), end, col,
                                      [](Run const& each, int at) { return each.last < at; });
    return run != end && run->first <= col;
}

CellRect CellRegion::bounds() const {
    if (bands.empty())
        return {};
    CellRect bounds{bands.front().top, INT_MAX, bands.back().bottom, INT_MIN};
    for (Run const& run : runs) {
        bounds.left = std::min(bounds.left, run.first);
        bounds.right = std::max(bounds.right, run.last);
    }
    return bounds;
}

std::vector<CellRect> CellRegion::rects() const {
    std::vector<CellRect> result;
    result.reserve(runs.size());
    for (Band const& band : bands) {
        for (std::size_t run = band.begin; run < band.end; ++run)
            result.push_back({band.top, runs[run].first, band.bottom, runs[run].last});
    }
    return result;
}

CellRegion CellRegion::row(int row) const {
    CellRegion result;
    auto const band =
        std::lower_bound(bands.begin(), bands.end(), row, [](Band const& each, int at) { return each.bottom < at; });
    if (band != bands.end() && band->top <= row)
        result.append(row, row,
                      Runs(runs.begin() + std::ptrdiff_t(band->begin), runs.begin() + std::ptrdiff_t(band->end)));
    return result;
}

CellRegion CellRegion::col(int col) const {
    return *this & CellRegion({INT_MIN, col, INT_MAX, col});
}

CellRegion CellRegion::operator|(CellRegion const& other) const {
    return combine(*this, other, [](bool a, bool b) { return a || b; });
}

CellRegion CellRegion::operator&(CellRegion const& other) const {
    return combine(*this, other, [](bool a, bool b) { return a && b; });
}

CellRegion CellRegion::operator-(CellRegion const& other) const {
    if (other.isEmpty())
        return *this;
    return combine(*this, other, [](bool a, bool b) { return a && !b; });
}

CellRegion CellRegion::moved(int rows, int cols) const {
    CellRegion result = *this;
    for (Band& band : result.bands) {
        band.top += rows;
        band.bottom += rows;
    }
    for (Run& run : result.runs) {
        run.first += cols;
        run.last += cols;
    }
    return result;
}

CellRegion CellRegion::clampedTo(CellRect const& bounds) const {
    CellRect const present = this->bounds();
    if (present.top >= bounds.top && present.left >= bounds.left && present.bottom <= bounds.bottom &&
        present.right <= bounds.right)
        return *this;
    std::vector<CellRect> pieces = rects();
    for (CellRect& rect : pieces) {
        rect = {std::clamp(rect.top, bounds.top, bounds.bottom), std::clamp(rect.left, bounds.left, bounds.right),
                std::clamp(rect.bottom, bounds.top, bounds.bottom), std::clamp(rect.right, bounds.left, bounds.right)};
    }
    return ofRects(pieces);
}

/// Goes down both sets at once, from one row at which a band of either begins or ends to the next.
template <class Keep>
CellRegion CellRegion::combine(CellRegion const& a, CellRegion const& b, Keep keep) {
    CellRegion result;
    Runs band;
    auto const side = [](CellRegion const& region, std::size_t at, std::int64_t row) {
        bool const present = at < region.bands.size();
        return sideAt(row, present, present ? region.bands[at].top : 0, present ? region.bands[at].bottom : 0);
    };
    auto const runsOf = [](CellRegion const& region, std::size_t at, bool holds) {
        Run const* const start = region.runs.data();
        return holds ? std::pair(start + region.bands[at].begin, start + region.bands[at].end)
                     : std::pair(start, start);
    };
    std::size_t i = 0;
    std::size_t j = 0;
    for (std::int64_t row = INT_MIN;;) {
        Side const inA = side(a, i, row);
        Side const inB = side(b, j, row);
        std::int64_t const next = std::min(inA.change, inB.change);
        if (next == nowhere)
            return result;
        if (inA.holds || inB.holds) {
            auto const [aRuns, aEnd] = runsOf(a, i, inA.holds);
            auto const [bRuns, bEnd] = runsOf(b, j, inB.holds);
            band.clear();
            combineRuns(band, aRuns, aEnd, bRuns, bEnd, keep);
            result.append(int(row), int(next - 1), band);
        }
        row = next;
        i += inA.holds && inA.change == next;
        j += inB.holds && inB.change == next;
    }
}

template <class Keep>
void CellRegion::combineRuns(Runs& out, Run const* a, Run const* aEnd, Run const* b, Run const* bEnd, Keep keep) {
    for (std::int64_t col = INT_MIN;;) {
        Side const inA = sideAt(col, a != aEnd, a != aEnd ? a->first : 0, a != aEnd ? a->last : 0);
        Side const inB = sideAt(col, b != bEnd, b != bEnd ? b->first : 0, b != bEnd ? b->last : 0);
        std::int64_t const next = std::min(inA.change, inB.change);
        if (next == nowhere)
            return;
        if (keep(inA.holds, inB.holds)) {
            if (!out.empty() && std::int64_t(out.back().last) + 1 == col)
                out.back().last = int(next - 1);
            else
                out.push_back({int(col), int(next - 1)});
        }
        col = next;
        a += inA.holds && inA.change == next;
        b += inB.holds && inB.change == next;
    }
}

/// A band that goes on from the one above becomes one with it.
void CellRegion::append(int top, int bottom, Runs const& bandRuns) {
    if (bandRuns.empty())
        return;
    if (!bands.empty() && std::int64_t(bands.back().bottom) + 1 == top &&
        std::equal(runs.begin() + std::ptrdiff_t(bands.back().begin), runs.end(), bandRuns.begin(), bandRuns.end())) {
        bands.back().bottom = bottom;
        return;
    }
    bands.push_back({top, bottom, runs.size(), runs.size() + bandRuns.size()});
    runs.insert(runs.end(), bandRuns.begin(), bandRuns.end());
}
