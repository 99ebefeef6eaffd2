#include "model/undo/LineInsertion.h"

#include "model/undo/ModelAxis.h"

namespace {

/// The view is told of every single place as long as that is cheap, so that it keeps the sizes of its lines. More
/// places are changed in one pass over the data, and the grid grows or shrinks at its end.
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

void LineInsertion::insert() {
    if (!isFew())
        return model.getTableData().putBack(lines);
    ModelAxis lines(model, axis);
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        lines.insert(place->line, place->count);
}

void LineInsertion::remove() {
    if (!isFew())
        return model.getTableData().take(lines);
    ModelAxis lines(model, axis);
    for (std::size_t place = places.size(); place-- > 0;)
        lines.remove(newLines[place], places[place].count);
}
