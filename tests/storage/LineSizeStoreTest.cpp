#include "storage/LineSizeStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

struct Line {
    int size = -1; ///< -1 for the default
    bool byHand = false;
};
using Model = std::vector<Line>;

/// The store beside a plain list of lines, on which every change is made line by line.
class LineSizeStoreTest : public testing::Test {
public:
    static constexpr int length = 30;

    int random(int below) { return int(generator() % unsigned(below)); }
    void expectSame(char const* after) {
        int last = 0;
        int sized = 0;
        int total = 0;
        for (int raw = 0; raw < int(model.size()) + 5; ++raw) {
            Line const line = raw < int(model.size()) ? model[std::size_t(raw)] : Line();
            ASSERT_EQ(store.size(raw).value_or(-1), line.size) << after << " line " << raw;
            ASSERT_EQ(store.isByHand(raw), line.byHand) << after << " line " << raw;
            last = line.size >= 0 ? raw + 1 : last;
            sized += line.size >= 0;
            total += std::max(line.size, 0);
            ASSERT_EQ(raw < store.end() && store.nextSized(raw) == raw, line.size >= 0) << after;
        }
        ASSERT_EQ(store.end(), last) << after;
        ASSERT_EQ(store.areDefault(), last == 0);
        ASSERT_EQ(store.sizedCount(), sized) << after;
        ASSERT_EQ(store.sizedTotal(), total) << after;
    }
    LineSizeStore::Blocks randomBlocks() {
        LineSizeStore::Blocks blocks;
        for (int first = random(8); first < int(model.size()); first += 1 + random(9)) {
            blocks.emplace_back(first, std::min(first + random(3), int(model.size()) - 1));
            first = blocks.back().second;
        }
        return blocks;
    }
    void resize() {
        int const raw = random(int(model.size()));
        switch (random(4)) {
        case 0:
            store.reset(raw);
            model[std::size_t(raw)] = {};
            break;
        case 1:
            store.fit(raw, random(90));
            model[std::size_t(raw)] = {*store.size(raw), false};
            break;
        default: store.setByHand(raw, random(90)); model[std::size_t(raw)] = {*store.size(raw), true};
        }
    }
    void bound() {
        int const least = random(20);
        int const most = 80 + random(10);
        store.dropBelow(least, least + 5);
        store.cutAll(most);
        for (Line& line : model) {
            if (line.size < (line.byHand ? least : least + 5))
                line = {};
            line.size = std::min(line.size, most);
        }
    }
    void insertAndRemove() {
        int const at = random(int(model.size()));
        store.insert(at, 2);
        model.insert(model.begin() + at, 2, Line());
        int const from = random(int(model.size()) - 2);
        store.remove(from, 2);
        model.erase(model.begin() + from, model.begin() + from + 2);
    }
    void removeScattered() {
        std::vector<int> const raws{2, 3, 9};
        store.remove(raws);
        for (auto raw = raws.rbegin(); raw != raws.rend(); ++raw)
            model.erase(model.begin() + *raw);
        model.resize(length);
    }
    void takeAndPutBack() {
        auto const blocks = randomBlocks();
        Model const before = model;
        LineSizeStore const taken = store.take(blocks);
        for (auto block = blocks.rbegin(); block != blocks.rend(); ++block)
            model.erase(model.begin() + block->first, model.begin() + block->second + 1);
        expectSame("taking");
        store.putBack(blocks, taken);
        model = before;
    }
    void move() {
        int const from = random(length);
        int const to = random(length);
        store.move(from, to);
        Line const line = model[std::size_t(from)];
        model.erase(model.begin() + from);
        model.insert(model.begin() + to, line);
    }
    void moveOver() {
        std::vector<int> const path{7, 5, 4, 1};
        store.moveOver(path);
        Line const line = model[7];
        model[7] = model[5];
        model[5] = model[4];
        model[4] = model[1];
        model[1] = line;
    }
    void reorder() {
        std::vector<int> order(length - 4);
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), generator);
        store.reorder(order);
        Model const before = model;
        for (std::size_t line = 0; line < order.size(); ++line)
            model[line] = before[std::size_t(order[line])];
    }

    std::mt19937 generator{7};
    LineSizeStore store;
    Model model = Model(length);
};

} // namespace

TEST_F(LineSizeStoreTest, SizesGoWhereTheirLinesGo) {
    struct {
        char const* name;
        void (LineSizeStoreTest::*change)();
    } const changes[] = {{"resizing", &LineSizeStoreTest::resize},
                         {"bounding", &LineSizeStoreTest::bound},
                         {"inserting and removing", &LineSizeStoreTest::insertAndRemove},
                         {"removing scattered lines", &LineSizeStoreTest::removeScattered},
                         {"putting back", &LineSizeStoreTest::takeAndPutBack},
                         {"moving", &LineSizeStoreTest::move},
                         {"moving around others", &LineSizeStoreTest::moveOver},
                         {"sorting", &LineSizeStoreTest::reorder}};
    for (int step = 0; step < 4000 && !HasFatalFailure(); ++step) {
        auto const& change = changes[random(int(std::size(changes)))];
        // Sizes gather faster than removals drop them.
        for (int more = random(4); more > 0; --more)
            resize();
        (this->*change.change)();
        expectSame(change.name);
    }
}

TEST_F(LineSizeStoreTest, LinesFarBehindCostNothingUntilTheyAreSized) {
    store.insert(1000000, 5);
    store.remove(2000000, 5);
    store.move(1000000, 3);
    store.reset(5000000);
    LineSizeStore const taken = store.take({{0, 999999}});
    store.putBack({{0, 999999}}, taken);
    EXPECT_TRUE(store.areDefault());
    store.setByHand(3, 40);
    store.move(3, 1000);
    EXPECT_EQ(store.size(1000), 40);
    store.move(1000, 2);
    store.resetFrom(3);
    EXPECT_EQ(store.end(), 3);
    store.resetFrom(0);
    EXPECT_TRUE(store.areDefault());
}
