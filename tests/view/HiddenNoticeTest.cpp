#include "view/HiddenNotice.h"

#include "tests/view/TableFixture.h"

#include <QAccessible>
#include <QAction>

namespace {

class HiddenNoticeTest : public TableFixture {
protected:
    QString shown() {
        auto const* const notice = view.findChild<HiddenNotice*>();
        return notice->isVisible() ? notice->text() : QString();
    }
};

TEST_F(HiddenNoticeTest, SaysWhichCommandBringsBackWhatIsHiddenAndOnlyWhileNothingIsInSight) {
    load(3, 2);
    QAction showRows;
    showRows.setShortcut(Qt::CTRL | Qt::Key_R);
    view.setupContextMenus({{"Show All Hidden Row(s)", &showRows}});
    QString const showsRows =
        "\"Show All Hidden Row(s)\" (" + showRows.shortcut().toString(QKeySequence::NativeText) + ")";
    EXPECT_EQ(shown(), QString());
    model().setAndApplyHiddenRowsList({0, 2});
    EXPECT_EQ(shown(), QString());
    model().setAndApplyHiddenRowsList({0, 1, 2});
    EXPECT_EQ(shown(), "All rows are hidden.\n" + showsRows + " brings them back.");
    model().setAndApplyHiddenColsList({0, 1});
    EXPECT_EQ(shown(),
              "All rows and columns are hidden.\n" + showsRows + " and \"Show All Hidden Column(s)\" bring them back.");
    model().setAndApplyHiddenRowsList({});
    QString const columns = "All columns are hidden.\n\"Show All Hidden Column(s)\" brings them back.";
    EXPECT_EQ(shown(), columns);
    auto* const notice = view.findChild<HiddenNotice*>();
    EXPECT_EQ(QAccessible::queryAccessibleInterface(notice)->text(QAccessible::Name), columns);
    EXPECT_TRUE(view.viewport()->geometry().contains(notice->geometry()));
    model().toggleTranspose();
    EXPECT_EQ(shown(), "All rows are hidden.\n" + showsRows + " brings them back.");
    // A text typed behind what is hidden is in sight.
    model().setData(model().index(0, 0), QStringLiteral("new"));
    EXPECT_EQ(shown(), QString());
}

TEST_F(HiddenNoticeTest, AnEmptyTableIsNotHidden) {
    load(0, 0);
    EXPECT_EQ(shown(), QString());
}

} // namespace
