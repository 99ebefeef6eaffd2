// Lines found by what they hold or by what is selected: duplicates, and lists of hidden lines.

#include "model/DuplicateLines.h"
#include "model/HiddenLines.h"
#include "tests/model/SelectionText.h"
#include "tests/model/TableModelFixture.h"

namespace {

using Lines = std::vector<int>;

class FoundLines : public TableModelFixture {};

TEST_F(FoundLines, TheFirstOfEqualLinesStaysAndHeadersAreNoDuplicates) {
    Lines const firstAndThird{0, 2};
    struct {
        QByteArray content;
        Axis axis;
        Lines const* crossing;
        Lines expected;
    } const cases[] = {
        {"h,i\na,b\nh,i\na,b\nA,b\na,b\n", Axis::Rows, nullptr, {3, 5}},
        {"h\nx\n\ny\n\n\n", Axis::Rows, nullptr, {4, 5}},
        {"h,i,j\na,1,b\na,2,b\na,2,c\n", Axis::Rows, &firstAndThird, {2}},
        {"ab,c\na,bc\nab,c\n,abc\nab,\nab\n", Axis::Rows, nullptr, {5}},
        {"h,h\n1,11\n11,1\n\"1,11\",\n1,\"11,\"\n\"1\n\",1\n1,\"\n1\"\n11,1\n", Axis::Rows, nullptr, {7}},
        {"h,i,j\n1,x,11\n11,y,1\n,z,111\n11,,1\n", Axis::Rows, &firstAndThird, {4}},
        {"h,x,y,x,x\nh,1,1,1,2\n", Axis::Columns, nullptr, {3}},
        {"h,x,y,z\nh,1,1,1\nh,2,2,3\n", Axis::Columns, nullptr, {}},
        {"h,x,h\n1,2,1\n", Axis::Columns, nullptr, {}},
        {"h,1,11,1\nh,11,1,11\n", Axis::Columns, nullptr, {3}},
        {"h,1,11\nq,5,6\nh,11,1\n", Axis::Columns, &firstAndThird, {}},
        {"h,x,x,x\nq,5,6,7\nh,2,2,3\n", Axis::Columns, &firstAndThird, {2}},
        {"", Axis::Rows, nullptr, {}},
    };
    for (auto const& test : cases) {
        load(test.content);
        model.setNumberOfHeaderRows(1);
        model.setNumberOfHeaderCols(1);
        EXPECT_EQ(findDuplicateLines(model, test.axis, test.crossing), test.expected) << test.content.toStdString();
    }
}

TEST_F(FoundLines, DuplicatesAreSoughtAmongWhatIsShownOnATransposedTableToo) {
    load("h,a,b,a,b,a\ni,1,2,1,2,1\n");
    model.toggleTranspose();
    EXPECT_EQ(findDuplicateLines(model, Axis::Rows, nullptr), (Lines{3, 4, 5}));
    model.setAndApplyHiddenRowsList({1, 2});
    EXPECT_EQ(findDuplicateLines(model, Axis::Rows, nullptr), (Lines{3}));
}

TEST_F(FoundLines, HiddenListsChangeByTheSelection) {
    using Change = Lines (HiddenLines::*)() const;
    struct {
        Axis axis;
        Lines hidden;
        char const* selection; ///< as it is with the hidden lines
        Change change;
        Lines expected;
    } const cases[] = {
        {Axis::Rows, {}, "C1,0 C3,2 C40,0", &HiddenLines::withSelected, {1, 3}},
        {Axis::Rows, {1}, "R1,0", &HiddenLines::withSelected, {1, 2}},
        {Axis::Columns, {0}, "C0,0 C1,1", &HiddenLines::withSelected, {0, 1, 2}},
        {Axis::Rows, {1}, "R1,0", &HiddenLines::withAllButSelected, {0, 1, 3, 4, 5}},
        {Axis::Rows, {0}, "C0,0", &HiddenLines::withEmpty, {0, 2, 4}},
        {Axis::Columns, {}, "C0,0", &HiddenLines::withEmpty, {1}},
        {Axis::Rows, {1, 2, 4}, "C0,0", &HiddenLines::withoutEmpty, {1}},
        {Axis::Rows, {1, 3}, "C0,0 C1,0", &HiddenLines::withoutThoseInSelection, {3}},
        {Axis::Rows, {1, 3}, "C0,0 C2,0", &HiddenLines::withoutThoseInSelection, {1, 3}},
        {Axis::Rows, {0, 3, 5}, "K0,0", &HiddenLines::withoutThoseInSelection, {}},
        {Axis::Columns, {0}, "C2,1", &HiddenLines::withoutThoseInSelection, {0}},
    };
    for (auto const& test : cases) {
        load("a,,1\nb,,2\n,,\nc,,3\n,,\nd,,4\n");
        if (test.axis == Axis::Rows)
            model.setAndApplyHiddenRowsList(test.hidden);
        else
            model.setAndApplyHiddenColsList(test.hidden);
        RangeVector const ranges = rangesFrom(test.selection);
        model.setSelection(modelCell(ranges.front().row, ranges.front().col), ranges);
        EXPECT_EQ((HiddenLines(model, test.axis).*test.change)(), test.expected)
            << test.selection << " of case " << &test - cases;
    }
    load("a,,1,\nb,,2,\n");
    model.toggleTranspose();
    EXPECT_EQ(HiddenLines(model, Axis::Rows).withEmpty(), (Lines{1, 3}));
    EXPECT_EQ(HiddenLines(model, Axis::Columns).withEmpty(), Lines());
}

} // namespace
