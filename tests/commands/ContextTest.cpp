#include "core/Context.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using enum Context;

constexpr Context navigated = TableActive | Navigating;
constexpr Context edited = TableActive | CellEditing;

struct Change {
    Context before;
    Context bits;
    Context after;
};

TEST(Context, addingBitsBringsWhatFollowsFromThem) {
    constexpr Change changes[] = {
        {None, TableActive, navigated},
        {CellEditing, TableActive, edited},
        {None, FolderOpen, navigated | FolderOpen},
        {CellEditing, FolderOpen, edited | FolderOpen},
        {edited, Navigating, navigated},
        {navigated, CellEditing, edited},
        {None, MultiCellSelection, navigated | MultiCellSelection},
        {edited, MultiCellSelectionExtra, edited | MultiCellSelectionExtra},
        {None, FileOnDisk, navigated | FileOnDisk},
        {edited, LauncherOpen, edited | LauncherOpen},
        {None, FindMode, navigated | FindReplaceOpen | FindMode},
        {None, ReplaceMode, navigated | FindReplaceOpen | ReplaceMode},
        {edited, FindAllMode, edited | FindReplaceOpen | FindAllMode},
        {None, FindResultsMode, TableActive | FindReplaceOpen | FindResultsMode},
        {None, FindReplaceOpen, FindReplaceOpen},
        {None, FiltersPresent, TableActive | FiltersPresent | FiltersOrHiddenPresent},
        {edited, HiddenPresent, edited | HiddenPresent | FiltersOrHiddenPresent},
        {None, FiltersOrHiddenPresent, FiltersOrHiddenPresent},
        {None, ReadOnly | EditorPaneShown, ReadOnly | EditorPaneShown},
        // Each clears the other.
        {None, Navigating | CellEditing, TableActive},
        {None, Any, Any},
        {navigated, None, navigated},
    };
    for (Change const& change : changes) {
        Context value = change.before;
        addContextGlobal(value, change.bits);
        EXPECT_EQ(value, change.after) << static_cast<unsigned>(change.before) << " + "
                                       << static_cast<unsigned>(change.bits);
        if (change.before == None) {
            EXPECT_EQ(modifyContext(change.bits), change.after);
        }
    }
}

TEST(Context, removingBitsTakesWhatCannotStay) {
    constexpr Context found = FindReplaceOpen | FindMode | ReplaceMode | FindAllMode | FindResultsMode;
    constexpr Change changes[] = {
        {edited | FileOnDisk, TableActive, FileOnDisk},
        {navigated, TableActive, None},
        {navigated, Navigating, edited},
        {edited, CellEditing, navigated},
        {Navigating, Navigating, None},
        {CellEditing, CellEditing, None},
        {navigated | found, FindReplaceOpen, navigated | FindResultsMode},
        {FiltersPresent | FiltersOrHiddenPresent, FiltersPresent, None},
        {HiddenPresent | FiltersOrHiddenPresent, HiddenPresent, None},
        {FiltersPresent | HiddenPresent | FiltersOrHiddenPresent, FiltersPresent,
         HiddenPresent | FiltersOrHiddenPresent},
        {FiltersPresent | HiddenPresent | FiltersOrHiddenPresent, HiddenPresent,
         FiltersPresent | FiltersOrHiddenPresent},
        {FiltersPresent | HiddenPresent | FiltersOrHiddenPresent, FiltersPresent | HiddenPresent, None},
        {Any, Any, None},
    };
    for (Change const& change : changes) {
        Context value = change.before;
        removeContextGlobal(value, change.bits);
        EXPECT_EQ(value, change.after) << static_cast<unsigned>(change.before) << " - "
                                       << static_cast<unsigned>(change.bits);
    }
}

TEST(Context, overlapLooksAtAllButTheTable) {
    EXPECT_TRUE(doContextsOverlap(TableActive, Navigating));
    EXPECT_TRUE(doContextsOverlap(FileOnDisk, FolderOpen));
    EXPECT_TRUE(doContextsOverlap(Any, CellEditing));
    EXPECT_FALSE(doContextsOverlap(Navigating, CellEditing));
    EXPECT_FALSE(doContextsOverlap(TableActive, CellEditing));
    EXPECT_FALSE(doContextsOverlap(FiltersOrHiddenPresent, Navigating));
    EXPECT_FALSE(doContextsOverlap(None, Any));
}

TEST(Context, everyBitBelongsToTheTableOrToTheWindow) {
    EXPECT_EQ(tableContextMask & globalContextMask, None);
    EXPECT_EQ(static_cast<unsigned>(tableContextMask | globalContextMask), (1u << 18) - 1);
}

} // namespace
