#include "model/HiddenLines.h"

#include "model/TableModel.h"

#include <algorithm>
#include <iterator>

namespace {

using Indexes = HiddenLines::Indexes;

Indexes united(Indexes const& a, Indexes const& b) {
    Indexes result;
    std::set_union(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(result));
    return result;
}

Indexes without(Indexes const& list, Indexes const& removed) {
    Indexes result;
    std::set_difference(list.begin(), list.end(), removed.begin(), removed.end(), std::back_inserter(result));
    return result;
}

} // namespace

Indexes const& HiddenLines::present() const {
    TableData const& data = model.getTableData();
    return axis == Axis::Rows ? data.getConcealedRowsRaw() : data.getConcealedColsRaw();
}

Indexes HiddenLines::withSelected() const {
    Indexes selected = selectedModelLines();
    std::transform(selected.begin(), selected.end(), selected.begin(), [this](int line) { return rawFromModel(line); });
    return united(present(), selected);
}

Indexes HiddenLines::withAllButSelected() const {
    Indexes const selected = selectedModelLines();
    Indexes others;
    auto next = selected.begin();
    for (int line = 0; line < modelCount(); ++line) {
        if (next != selected.end() && *next == line)
            ++next;
        else
            others.push_back(rawFromModel(line));
    }
    return united(present(), others);
}

Indexes HiddenLines::withEmpty() const {
    return united(present(), emptyLines());
}

Indexes HiddenLines::withoutEmpty() const {
    return without(present(), emptyLines());
}

Indexes HiddenLines::withoutThoseInSelection() const {
    Indexes const selected = selectedModelLines();
    Indexes remaining = present();
    // From behind, so that a stretch taken out does not move those to come.
    auto const show = [&](int first, int last) {
        auto const from = std::lower_bound(remaining.begin(), remaining.end(), first);
        remaining.erase(from, std::upper_bound(from, remaining.end(), last));
    };
    for (auto line = selected.rbegin(); line != selected.rend(); ++line) {
        if (*line == modelCount() - 1)
            show(rawFromModel(*line), rawCount() - 1);
        bool const neighbourSelected = std::next(line) != selected.rend() && *std::next(line) == *line - 1;
        if (neighbourSelected || *line == 0)
            show(*line == 0 ? 0 : rawFromModel(*line - 1), rawFromModel(*line));
    }
    return remaining;
}

Indexes HiddenLines::selectedModelLines() const {
    Indexes lines;
    if (axis == Axis::Rows)
        model.getOrderedSetOfSelectedRows(lines, RangeIndexType::Model, false);
    else
        model.getOrderedSetOfSelectedCols(lines, RangeIndexType::Model, false);
    std::erase_if(lines, [count = modelCount()](int line) { return line < 0 || line >= count; });
    return lines;
}

Indexes HiddenLines::emptyLines() const {
    return axis == Axis::Rows ? model.getEmptyRowsRaw(false) : model.getEmptyColumnsRaw(false);
}

int HiddenLines::modelCount() const {
    return axis == Axis::Rows ? model.rowCountModel() : model.columnCountModel();
}

int HiddenLines::rawCount() const {
    return axis == Axis::Rows ? model.rowCountRaw() : model.columnCountRaw();
}

int HiddenLines::rawFromModel(int line) const {
    TableData const& data = model.getTableData();
    return axis == Axis::Rows ? data.getRawFromModelRow(line) : data.getRawFromModelCol(line);
}
