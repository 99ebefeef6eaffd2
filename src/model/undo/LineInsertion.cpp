#include "model/undo/LineInsertion.h"

#include "model/undo/ModelAxis.h"

namespace {

/// The grid is changed at every single place as long as that is cheap. More places are changed in one pass over the
/// data, and the grid grows or shrinks at its end.
constexpr std::size_t mostSinglePlaces = 64;

} // namespace

LineInsertion::LineInsertion(TableModel& model, Axis axis, std::vector<Place> places)
    : model(model), axis(axis), places(std::move(places)), lines(axis, rawBlocks()) {
    int inserted = 0;
    for (Place const& place : this->places) {
        newLines.push_back(place.line + inserted);
        inserted += place.count;
    }
}

/// The places that lie in the table; the grid goes on behind it, but there is nothing to insert there.
TakenLines::Blocks LineInsertion::rawBlocks() const {
    ModelAxis const lines(model, axis);
    TakenLines::Blocks blocks;
    int inserted = 0;
    for (Place const& place : places) {
        int const raw = lines.rawFromModel({place.line}).front();
        if (raw > lines.rawCount() || place.count < 1)
            break;
        blocks.emplace_back(raw + inserted, raw + inserted + place.count - 1);
        inserted += place.count;
    }
    return blocks;
}

bool LineInsertion::isFew() const {
    return places.size() <= mostSinglePlaces;
}

LineGaps LineInsertion::gaps() const {
    LineGaps::Runs runs;
    for (std::size_t place = 0; place < places.size(); ++place)
        runs.emplace_back(newLines[place], newLines[place] + places[place].count - 1);
    return LineGaps(std::move(runs));
}

void LineInsertion::insert() {
    if (!isFew()) {
        model.getTableData().putBack(lines);
        model.enforceTableSize();
        LineMove move{axis, [gaps = gaps()](int line) { return gaps.with(line); }, nullptr};
        return model.moveSizes(move);
    }
    ModelAxis lines(model, axis);
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        lines.insert(place->line, place->count);
}

void LineInsertion::remove() {
    if (!isFew()) {
        model.getTableData().take(lines);
        LineMove move{axis, [gaps = gaps()](int line) { return gaps.without(line); }, nullptr};
        return model.moveSizes(move);
    }
    ModelAxis lines(model, axis);
    for (std::size_t place = places.size(); place-- > 0;)
        lines.remove(newLines[place], places[place].count);
}
