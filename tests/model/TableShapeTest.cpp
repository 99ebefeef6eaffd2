#include "model/TableShape.h"

#include <optional>

namespace {

TEST(TableShape, GridIsLargerThanItsData) {
    struct Case {
        char const* what;
        TableShape shape; // model count, concealed, buffer, minimum, read-only
        std::optional<int> lastSelected;
        int count;
    };
    Case const cases[] = {
        {"buffer alone", {0, 0, 5, 0, false}, std::nullopt, 5},
        {"minimum", {0, 0, 5, 100, false}, std::nullopt, 100},
        {"data and buffer over minimum", {98, 0, 5, 100, false}, std::nullopt, 103},
        {"buffer behind the selection", {10, 0, 5, 0, false}, 20, 26},
        {"concealed lines do not count there", {10, 4, 5, 0, false}, 20, 22},
        {"selection inside the data", {10, 0, 5, 0, false}, 3, 15},
        {"read-only is its data", {10, 4, 5, 100, true}, 50, 10},
    };
    for (Case const& each : cases)
        EXPECT_EQ(each.shape.viewCount(each.lastSelected), each.count) << each.what;
}

TEST(TableShape, SelectionStaysBeforeTheBuffer) {
    struct Case {
        TableShape shape;
        int last;
    };
    Case const cases[] = {
        {{10, 0, 5, 0, false}, 9}, {{10, 3, 5, 0, false}, 12},   {{10, 9, 5, 0, false}, 14}, {{0, 0, 5, 0, false}, 0},
        {{0, 0, 0, 0, false}, 0},  {{10, 0, 5, 100, false}, 94}, {{10, 0, 5, 100, true}, 9},
    };
    for (Case const& each : cases)
        EXPECT_EQ(each.shape.lastSelectable(), each.last) << each.shape.modelCount << ' ' << each.shape.minimum;
}

} // namespace
