#include "storage/ConcealedList.h"

#include <climits>
#include <random>

namespace {

using Indexes = ConcealedList::Indexes;

ConcealedList concealing(Indexes const& raws) {
    ConcealedList list;
    list.conceal(raws);
    return list;
}

/// The mapping as a plain list of the shown raw indexes among `count`.
Indexes shownLines(ConcealedList const& list, int count) {
    Indexes shown;
    for (int raw = 0; raw < count; ++raw) {
        if (!list.contains(raw))
            shown.push_back(raw);
    }
    return shown;
}

int nearestShownAbove(Indexes const& shown, int raw) {
    auto const behind = std::upper_bound(shown.begin(), shown.end(), raw);
    return std::max(static_cast<int>(behind - shown.begin()) - 1, 0);
}

TEST(ConcealedList, MapsAsWalkingOverTheTableWould) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        int const count = 1 + static_cast<int>(random() % 40);
        unsigned const density = 1 + random() % 6;
        ConcealedList list;
        for (int raw = 0; raw < count; ++raw) {
            if (random() % density == 0)
                list.conceal({raw, raw});
        }
        Indexes const shown = shownLines(list, count);
        ASSERT_EQ(list.size() + static_cast<int>(shown.size()), count);
        for (int model = 0; model < count + 3; ++model) {
            int const past = model - static_cast<int>(shown.size());
            int const expected = past < 0 ? shown[static_cast<std::size_t>(model)] : count + past;
            ASSERT_EQ(list.toRaw(model), expected);
        }
        for (int raw = 0; raw < count; ++raw) {
            int const nearest = nearestShownAbove(shown, raw);
            ASSERT_EQ(list.toNearestModel(raw, static_cast<int>(shown.size())), nearest);
            ASSERT_EQ(list.toModel(raw), list.contains(raw) ? -1 : nearest);
        }
        for (int const raw : shown) {
            int const down = list.shownRun(raw, 1);
            int const up = list.shownRun(raw, -1);
            int const first = up == INT_MAX ? 0 : raw - up + 1;
            int const end = down == INT_MAX ? count : raw + down;
            ASSERT_TRUE(first == 0 || list.contains(first - 1));
            ASSERT_TRUE(end == count || list.contains(end));
            for (int line = first; line < end; ++line)
                ASSERT_FALSE(list.contains(line));
        }
    }
}

TEST(ConcealedList, AnswersAtItsEdges) {
    ConcealedList const none;
    EXPECT_EQ(none.toRaw(5), 5);
    EXPECT_EQ(none.toModel(5), 5);
    EXPECT_EQ(none.toRaw(-3), -1);
    EXPECT_EQ(none.toModel(-3), -1);
    EXPECT_EQ(none.toNearestModel(-3, 6), -1);
    EXPECT_EQ(none.toNearestModel(9, 6), 5);

    ConcealedList const middle = concealing({3, 2, 3});
    EXPECT_EQ(middle.indexes(), (Indexes{2, 3}));
    EXPECT_EQ(middle.toRaw(2), 4);
    EXPECT_EQ(middle.toModel(4), 2);
    EXPECT_EQ(middle.toModel(3), -1);
    EXPECT_EQ(middle.toNearestModel(3, 4), 1);
    EXPECT_EQ(concealing({0}).toNearestModel(0, 5), 0);
    for (int const raw : {0, 1, 2, 7})
        EXPECT_EQ(concealing({0, 1}).toNearestModel(raw, 0), 0) << "of no line in sight, line " << raw;
}

TEST(ConcealedList, FollowsInsertionsAndRemovals) {
    struct Case {
        char const* name;
        void (*change)(ConcealedList&);
        Indexes expected;
    };
    for (Case const& c :
         std::vector<Case>{{"insert above", [](ConcealedList& list) { list.shiftForInsertion(1, 2); }, {4, 7, 8}},
                           {"insert at an entry", [](ConcealedList& list) { list.shiftForInsertion(5, 1); }, {2, 6, 7}},
                           {"insert below", [](ConcealedList& list) { list.shiftForInsertion(7, 3); }, {2, 5, 6}},
                           {"remove between", [](ConcealedList& list) { list.shiftForRemoval(3, 2); }, {2, 3, 4}},
                           {"remove scattered",
                            [](ConcealedList& list) {
                                list.shiftForRemoval({0, 3, 4, 9});
                            },
                            {1, 2, 3}},
                           {"show",
                            [](ConcealedList& list) {
                                list.show({5, 2, 4});
                            },
                            {6}},
                           {"show all", [](ConcealedList& list) { list.showAll(); }, {}}}) {
        ConcealedList list = concealing({2, 5, 6});
        c.change(list);
        EXPECT_EQ(list.indexes(), c.expected) << c.name;
    }
}

} // namespace
