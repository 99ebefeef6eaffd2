#include "TableFixture.h"
#include "model/undo/ApplyHiddenLinesCommand.h"
#include "model/undo/DuplicateLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/SortCommand.h"
#include "model/undo/TransposeTableCommand.h"
#include "view/FrozenTableView.h"

#include <QHeaderView>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

namespace {

/// The lines of a table, each with a name of its own that it keeps wherever it goes.
struct Names {
    std::array<std::vector<int>, 2> stored; ///< by the axis as which they are shown
    std::set<int> hidden;

    std::vector<int> visible(Axis axis) const {
        std::vector<int> names;
        for (int const name : stored[std::size_t(axis)]) {
            if (!hidden.contains(name))
                names.push_back(name);
        }
        return names;
    }
};

/// Sizes that are given by hand are remembered by the names of lines, and after each change headers and bands are to
/// show them, wherever the lines are by now.
class LineSizesRandomTest : public TableFixture, public testing::WithParamInterface<unsigned> {
public:
    static constexpr int lines = 9;

    void SetUp() override {
        load(lines, lines);
        view.setNumberOfHeaderRows(2, false);
        view.setNumberOfHeaderColumns(1, false);
        for (auto& names : now.stored) {
            for (int line = 0; line < lines; ++line)
                names.push_back(nextName++);
        }
    }
    int random(int below) { return int(generator() % unsigned(below)); }
    Axis randomAxis() { return random(2) == 0 ? Axis::Rows : Axis::Columns; }
    QHeaderView& headerOf(AbstractTableView& of, Axis axis) {
        return axis == Axis::Rows ? *of.verticalHeader() : *of.horizontalHeader();
    }
    std::vector<int>& stored(Axis axis) { return now.stored[std::size_t(axis)]; }
    std::vector<int> someVisible(Axis axis, int most) {
        std::vector<int> chosen(now.visible(axis).size());
        std::iota(chosen.begin(), chosen.end(), 0);
        std::shuffle(chosen.begin(), chosen.end(), generator);
        chosen.resize(std::min(chosen.size(), std::size_t(1 + random(most))));
        std::sort(chosen.begin(), chosen.end());
        return chosen;
    }
    RangeVector cellsAt(Axis axis, std::vector<int> const& at) {
        RangeVector cells;
        for (int const line : at)
            cells.push_back(axis == Axis::Rows ? Range(line, 0, RangeIndexType::Model)
                                               : Range(0, line, RangeIndexType::Model));
        return cells;
    }
    int rawAt(Axis axis, int name) {
        return int(std::find(stored(axis).begin(), stored(axis).end(), name) - stored(axis).begin());
    }
    void push(QUndoCommand* command, Names const& before) {
        undone.clear();
        done.push_back(before);
        view.pushUndoCommand(command);
    }

    void resizeByHand() {
        Axis const axis = randomAxis();
        auto const names = now.visible(axis);
        int const line = random(int(names.size()));
        std::vector<AbstractTableView*> views{&view};
        for (FrozenTableView* const band :
             {view.getHorizontalFrozenView(), view.getVerticalFrozenView(), view.getCornerFrozenView()}) {
            if (band->hasModel() && line < headerOf(*band, axis).count())
                views.push_back(band);
        }
        int const size = 81 + random(60); // never the default
        headerOf(*views[std::size_t(random(int(views.size())))], axis).resizeSection(line, size);
        sizes[{names[std::size_t(line)], axis}] = size;
    }
    QHeaderView& header(Axis axis) { return headerOf(view, axis); }
    void freeze() {
        view.setFreezeHeaderRows(random(2) == 0, false);
        view.setFreezeHeaderColumns(random(2) == 0, false);
    }
    void insert() {
        Axis const axis = randomAxis();
        if (stored(axis).size() > 2 * lines)
            return;
        Names const before = now;
        auto const at = someVisible(axis, 2);
        std::vector<int> places;
        for (int const line : at)
            places.push_back(rawAt(axis, now.visible(axis)[std::size_t(line)]));
        for (auto place = places.rbegin(); place != places.rend(); ++place)
            stored(axis).insert(stored(axis).begin() + *place, {nextName + 1, nextName});
        for (std::size_t place = 0; place < places.size(); ++place)
            rename(axis, places[place] + int(place) * 2, 2);
        push(new InsertLinesCommand(axis, &model(), cellsAt(axis, at), 2, true, true), before);
    }
    void rename(Axis axis, int from, int count) {
        for (int line = from; line < from + count; ++line)
            stored(axis)[std::size_t(line)] = nextName++;
    }
    void remove() {
        Axis const axis = randomAxis();
        if (now.visible(axis).size() < lines)
            return;
        Names const before = now;
        auto const at = someVisible(axis, 3);
        auto const names = now.visible(axis);
        for (int const line : at)
            std::erase(stored(axis), names[std::size_t(line)]);
        push(new RemoveLinesCommand(axis, &model(), cellsAt(axis, at), 1, true), before);
    }
    void duplicate() {
        Axis const axis = randomAxis();
        if (stored(axis).size() > 2 * lines)
            return;
        Names const before = now;
        auto const at = someVisible(axis, 1);
        int const names = int(now.visible(axis).size());
        // The copy comes in front of the next visible line.
        int const place = at[0] + 1 < names ? rawAt(axis, now.visible(axis)[std::size_t(at[0]) + 1])
                                            : rawAt(axis, now.visible(axis)[std::size_t(at[0])]) + 1;
        if (at[0] + 1 == names && place < int(stored(axis).size()))
            return; // behind what is concealed at the end
        stored(axis).insert(stored(axis).begin() + place, nextName++);
        push(new DuplicateLinesCommand(axis, &model(), cellsAt(axis, at), 1, true), before);
    }
    void move() {
        Axis const axis = randomAxis();
        Names const before = now;
        auto names = now.visible(axis);
        int const from = random(int(names.size()));
        int const to = random(int(names.size()));
        if (to == from)
            return; // no step to undo
        int const name = names[std::size_t(from)];
        names.erase(names.begin() + from);
        names.insert(names.begin() + to, name);
        auto next = names.begin();
        for (int& line : stored(axis)) {
            if (!now.hidden.contains(line))
                line = *next++;
        }
        push(new MoveLinesRelativeCommand(axis, &model(), cellsAt(axis, {from}), to - from, true), before);
    }
    void hide() {
        Axis const axis = randomAxis();
        Names const before = now;
        std::vector<int> raws;
        for (int raw = 0; raw < int(stored(axis).size()); ++raw) {
            bool const hide = random(4) == 0;
            int const name = stored(axis)[std::size_t(raw)];
            hide ? void(now.hidden.insert(name)) : void(now.hidden.erase(name));
            if (hide)
                raws.push_back(raw);
        }
        if (now.visible(axis).size() < 3) {
            now = before;
            return;
        }
        push(new ApplyHiddenLinesCommand(axis, &model(), model().getSelection(), raws, true), before);
    }
    void sort() {
        Axis const axis = randomAxis();
        Names const before = now;
        SortData const data{random(2) == 0 ? SortType::Ascending : SortType::Descending, axis, random(2)};
        auto const order = model().getSortIndexes(data);
        for (std::size_t line = 0; line < order.size(); ++line)
            stored(axis)[line] = before.stored[std::size_t(axis)][std::size_t(order[line])];
        push(new SortCommand(&model(), data), before);
    }
    void transpose() {
        Names const before = now;
        std::swap(now.stored[0], now.stored[1]);
        push(new TransposeTableCommand(&model(), model().getSelection(), true), before);
    }
    void undo() {
        if (done.empty())
            return;
        undone.push_back(now);
        now = done.back();
        done.pop_back();
        view.undo();
    }
    void redo() {
        if (undone.empty())
            return;
        done.push_back(now);
        now = undone.back();
        undone.pop_back();
        view.redo();
    }

    void expectSizes(Axis axis) {
        auto const names = now.visible(axis);
        int const fallback = header(axis).defaultSectionSize();
        ASSERT_EQ(int(names.size()), axis == Axis::Rows ? model().rowCountModel() : model().columnCountModel());
        for (int line = 0; line < header(axis).count(); ++line) {
            bool const data = line < int(names.size());
            auto const size = data ? sizes.find({names[std::size_t(line)], axis}) : sizes.end();
            ASSERT_EQ(header(axis).sectionSize(line), size == sizes.end() ? fallback : size->second) << line;
            for (FrozenTableView* const band :
                 {view.getHorizontalFrozenView(), view.getVerticalFrozenView(), view.getCornerFrozenView()}) {
                if (band->isVisible() && line < headerOf(*band, axis).count()) {
                    ASSERT_EQ(headerOf(*band, axis).sectionSize(line), header(axis).sectionSize(line)) << line;
                }
            }
        }
    }

    std::mt19937 generator;
    Names now;
    std::vector<Names> done;
    std::vector<Names> undone;
    std::map<std::pair<int, Axis>, int> sizes; ///< by the name of the line and as what it is shown
    int nextName = 0;
};

} // namespace

TEST_P(LineSizesRandomTest, HeadersAndBandsShowEachLineInItsSize) {
    using Step = void (LineSizesRandomTest::*)();
    std::pair<char const*, Step> const steps[] = {{"resizing", &LineSizesRandomTest::resizeByHand},
                                                  {"freezing", &LineSizesRandomTest::freeze},
                                                  {"inserting", &LineSizesRandomTest::insert},
                                                  {"removing", &LineSizesRandomTest::remove},
                                                  {"duplicating", &LineSizesRandomTest::duplicate},
                                                  {"moving", &LineSizesRandomTest::move},
                                                  {"hiding", &LineSizesRandomTest::hide},
                                                  {"sorting", &LineSizesRandomTest::sort},
                                                  {"transposing", &LineSizesRandomTest::transpose},
                                                  {"undo", &LineSizesRandomTest::undo},
                                                  {"undo", &LineSizesRandomTest::undo},
                                                  {"redo", &LineSizesRandomTest::redo}};
    generator.seed(GetParam());
    for (int step = 0; step < 250 && !HasFatalFailure(); ++step) {
        auto const& [name, carryOut] = steps[random(int(std::size(steps)))];
        SCOPED_TRACE(std::string(name) + " at step " + std::to_string(step));
        resizeByHand();
        (this->*carryOut)();
        for (Axis const axis : {Axis::Rows, Axis::Columns})
            expectSizes(axis);
        if (step % 10 != 0)
            continue;
        // Nor does the layout that follows change any.
        QApplication::processEvents();
        for (Axis const axis : {Axis::Rows, Axis::Columns})
            expectSizes(axis);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LineSizesRandomTest, testing::Range(1U, 9U));
