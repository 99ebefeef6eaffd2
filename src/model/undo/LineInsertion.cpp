#include "model/undo/LineInsertion.h"

#include "model/undo/ModelAxis.h"

LineInsertion::LineInsertion(TableModel& model, Axis axis, std::vector<Place> const& places)
    : model(model), lines(axis, rawBlocks(model, axis, places)) {
    int inserted = 0;
    for (Place const& place : places) {
        newLines.push_back(place.line + inserted);
        inserted += place.count;
    }
}

/// The places that lie in the table; the grid goes on behind it, but there is nothing to insert there.
TakenLines::Blocks LineInsertion::rawBlocks(TableModel& model, Axis axis, std::vector<Place> const& places) {
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

void LineInsertion::insert() {
    model.getTableData().putBack(lines);
    model.enforceTableSize();
}

void LineInsertion::remove() {
    model.getTableData().take(lines);
}
