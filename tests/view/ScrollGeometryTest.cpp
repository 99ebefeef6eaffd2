#include "view/ScrollGeometry.h"

#include "tests/view/StubAxis.h"
#include "view/CellHit.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace {

StubAxis frozenFifty(int slider) {
    StubAxis axis = fiftySections(slider);
    axis.bandExtent = 42;
    axis.bandCount = 2;
    return axis;
}

} // namespace

TEST(ScrollGeometry, AMoveScrollsJustFarEnough) {
    struct Case {
        StubAxis axis;
        int from, to, slider;
    };
    StubAxis tall = fiftySections(0);
    tall.otherSizes[5] = 300;
    tall.barMaximum = 1180;
    for (Case const& test : std::vector<Case>{
             {fiftySections(0), 3, 4, 0},      // still in sight
             {fiftySections(0), 4, 5, 20},     // past the bottom
             {fiftySections(200), 10, 9, 180}, // past the top
             {fiftySections(0), 48, 49, 900},
             {tall, 4, 5, 100},            // larger than the viewport: its top shows
             {frozenFifty(300), 1, 2, 0},  // out of the band: to the middle, here above the start
             {frozenFifty(0), 1, 20, 350}, // out of the band, to the middle
             {frozenFifty(0), 20, 1, 0},
             {frozenFifty(300), 18, 16, 278}, // not behind the band
         })
        EXPECT_EQ(ScrollGeometry::sliderAfterMove(test.axis, test.from, test.to), test.slider)
            << test.from << " to " << test.to;
}

TEST(ScrollGeometry, ScrollToSectionFollowsItsTwoBranches) {
    struct Case {
        StubAxis axis;
        int section;
        bool ifNeeded, minimal;
        int slider; // -1: the view stays
    };
    for (Case const& test : std::vector<Case>{
             {fiftySections(0), 4, true, false, -1},
             {fiftySections(0), 20, true, false, 360},  // centre
             {fiftySections(0), 20, true, true, 320},   // nearer bound from above
             {fiftySections(800), 20, true, true, 400}, // nearer bound from below
             {fiftySections(0), 49, true, false, 900},  // centre would pass the end
             {fiftySections(500), 0, true, false, 0},
             {fiftySections(0), 4, false, false, 30}, // always, by the start and not the centre of the row
             {fiftySections(0), 49, false, false, 900},
             {frozenFifty(0), 20, true, false, 339},  // the band takes half its size away ...
             {frozenFifty(0), 20, false, false, 371}, // ... and here adds it
             {frozenFifty(800), 20, true, true, 358}, // behind the band
         }) {
        auto const target = ScrollGeometry::scrollToSection(test.axis, test.section, test.ifNeeded, test.minimal);
        EXPECT_EQ(target ? target->slider : -1, test.slider)
            << test.section << " " << test.ifNeeded << test.minimal << " from " << test.axis.slider;
    }
}

TEST(ScrollGeometry, ATargetPastTheBarLengthensIt) {
    StubAxis axis = fiftySections(0);
    axis.barMaximum = 100;
    auto const target = ScrollGeometry::scrollToSection(axis, 49, true, true);
    ASSERT_TRUE(target);
    EXPECT_EQ(target->maximum, 900);
    axis.barMaximum = 900;
    EXPECT_EQ(ScrollGeometry::scrollToSection(axis, 10, false, false)->maximum, 900) << "must not get shorter";
}

TEST(ScrollGeometry, WalksWholeSections) {
    struct Case {
        StubAxis axis;
        bool forward;
        int distance, slider; // -1: the view stays
    };
    StubAxis tall = fiftySections(0);
    tall.otherSizes[0] = 300;
    tall.barMaximum = 1180;
    StubAxis wideLast = fiftySections(980);
    wideLast.otherSizes[49] = 500;
    wideLast.barMaximum = 1380;
    StubAxis empty;
    for (Case const& test : std::vector<Case>{
             {fiftySections(0), true, 75, 60}, // three of 20 fit into 75
             {fiftySections(100), false, 75, 40},
             {fiftySections(100), false, 1, 80}, // at least one
             {fiftySections(40), false, 500, 0},
             {fiftySections(0), false, 75, -1},
             {fiftySections(0), true, 90, 80},
             {fiftySections(860), true, 900, 900}, // stops at the last section
             {tall, true, 75, 300},                // a tall section is passed in one go
             {wideLast, true, 75, 1380},           // the end of a last section larger than the viewport
             {frozenFifty(100), true, 75, 158},    // begins behind the band, as the target does
             {empty, true, 75, -1},
         }) {
        EXPECT_EQ(ScrollGeometry::walk(test.axis, test.forward, test.distance).value_or(-1), test.slider)
            << (test.forward ? "forward " : "back ") << test.distance << " from " << test.axis.slider;
    }
}

TEST(ScrollGeometry, SnapsToTheFirstSectionButNotAtTheEnd) {
    EXPECT_EQ(ScrollGeometry::snap(fiftySections(33)), 20);
    EXPECT_FALSE(ScrollGeometry::snap(fiftySections(40)));
    EXPECT_FALSE(ScrollGeometry::snap(fiftySections(900)));
    StubAxis unevenEnd = fiftySections(895);
    unevenEnd.barMaximum = 895;
    EXPECT_FALSE(ScrollGeometry::snap(unevenEnd));
    EXPECT_EQ(ScrollGeometry::snap(frozenFifty(33)), 18);
    EXPECT_FALSE(ScrollGeometry::snap(frozenFifty(18)));
    EXPECT_FALSE(ScrollGeometry::snap(StubAxis{}));
}

TEST(ScrollGeometry, AScreenOnIsHalfAScreenPastTheEdge) {
    EXPECT_EQ(ScrollGeometry::sectionOneScreenOn(fiftySections(0), true), 7);
    EXPECT_EQ(ScrollGeometry::sectionOneScreenOn(fiftySections(200), false), 7);
    EXPECT_EQ(ScrollGeometry::sectionOneScreenOn(fiftySections(20), false), 0);
    EXPECT_EQ(ScrollGeometry::sectionOneScreenOn(fiftySections(900), true), 49);
    EXPECT_EQ(ScrollGeometry::sectionOneScreenOn(StubAxis{}, true), -1);
}

TEST(ScrollGeometry, CountsRowsBeyondTheRangeOfPixels) {
    StubAxis huge;
    huge.sections = INT_MAX;
    huge.sectionSize = 1000;
    huge.viewport = 800;
    huge.barMaximum = INT_MAX;
    huge.slider = INT_MAX - 5;
    EXPECT_EQ(ScrollGeometry::maximumFor(huge), INT_MAX);
    EXPECT_EQ(ScrollGeometry::sliderAfterMove(huge, INT_MAX - 2, INT_MAX - 1), INT_MAX);
    EXPECT_EQ(ScrollGeometry::scrollToSection(huge, INT_MAX - 1, false, false)->slider, INT_MAX);
    EXPECT_EQ(ScrollGeometry::walk(huge, true, 75), INT_MAX);
    huge.slider = 0;
    EXPECT_EQ(ScrollGeometry::scrollToSection(huge, INT_MAX - 1, true, true)->slider, INT_MAX);
    EXPECT_EQ(ScrollGeometry::maximumFor(fiftySections(0)), 900);
    EXPECT_EQ(ScrollGeometry::maximumFor(StubAxis{}), 0);
}

TEST(CellHit, BeyondTheEdgesIsTheLineJustOutOfSight) {
    struct Case {
        StubAxis axis;
        int pixel, line;
    };
    StubAxis few;
    few.sections = 3;
    StubAxis partlyShown = fiftySections(890);
    for (Case const& test : std::vector<Case>{
             {fiftySections(0), 99, 4},
             {fiftySections(0), 100, 6}, // the line at the edge is out of sight already, and one more
             {fiftySections(0), 5000, 6},
             {fiftySections(200), -1, 9},
             {fiftySections(0), -50, 0},
             {fiftySections(900), 100, 49},
             {partlyShown, 100, 49},
             {few, 80, -1},
             {few, 100, 2},
             {StubAxis{}, 100, -1},
             {StubAxis{}, -1, -1},
         })
        EXPECT_EQ(lineAtPos(test.axis, test.pixel), test.line) << test.pixel << " at " << test.axis.slider;
}
