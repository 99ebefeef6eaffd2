// Writing many cells at once is held against writing them one by one.

#include "core/CellRegion.h"
#include "storage/CellPatch.h"
#include "storage/EditableDataContainer.h"
#include "storage/ReplacedCells.h"
#include "tests/storage/TableDataFixture.h"

#include <algorithm>
#include <random>

namespace {

using ManyCells = TableDataFixture;

constexpr int side = 9;

QByteArray randomTable(std::mt19937& random) {
    QByteArray text;
    for (int row = 0; row < 6; ++row) {
        for (int col = int(random() % 7); col > 0; --col)
            text += QByteArray("xyzxyzxyz").left(int(random() % 5)) + ",";
        text += "end\n";
    }
    return text;
}

CellRegion randomRegion(std::mt19937& random) {
    std::vector<CellRect> rects;
    for (int i = 1 + int(random() % 3); i > 0; --i) {
        int const top = int(random() % side);
        int const left = int(random() % side);
        rects.push_back({top, left, top + int(random() % 4), left + int(random() % 4)});
    }
    return CellRegion::ofRects(rects);
}

template <class Visit>
void forEachCell(CellRegion const& region, Visit visit) {
    for (CellRect const& rect : region.rects()) {
        for (int row = rect.top; row <= rect.bottom; ++row) {
            for (int col = rect.left; col <= rect.right; ++col)
                visit(row, col);
        }
    }
}

std::string textsOf(TableData const& data) {
    std::string texts;
    for (int row = 0; row < 2 * side; ++row) {
        for (int col = 0; col < 2 * side; ++col)
            texts += data.getValueModel(row, col).toString().toStdString() + ",";
    }
    return texts;
}

TEST_F(ManyCells, HoldWhatSingleWritesLeaveAndComeBack) {
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        QByteArray const content = randomTable(random);
        write("table.csv", content);
        TableData many;
        TableData single;
        for (TableData* each : {&many, &single})
            each->loadCSV(path("table.csv"), false, TableData::DataContainerType::Editable, QStringLiteral(","),
                          QStringLiteral(","), EncodingType::Utf8, ParsingStandard::Rfc4180);
        for (TableData* each : {&many, &single}) {
            if (round % 2)
                each->toggleTranspose();
            if (round % 3 == 0) {
                each->concealRawRows({1, 2, 4}, false);
                each->concealRawCols({0, 3}, false);
            }
        }
        CellRegion const region = randomRegion(random);
        QString const text = QString::fromLatin1("yz").left(int(random() % 3));
        if (round % 5 == 0) { // only what goes beyond the data can be new
            CellRegion const inside = region & CellRegion({0, 0, many.numModelRows() - 1, many.numModelCols() - 1});
            for (TableData* each : {&many, &single})
                forEachCell(inside, [&](int row, int col) { each->setValueModel(row, col, text); });
        }
        std::string const before = textsOf(many);
        bool changes = false;
        forEachCell(region, [&](int row, int col) { changes = single.setValueModel(row, col, text) || changes; });
        EXPECT_EQ(many.wouldFillChange(region, text), changes);

        for (int redo = 0; redo < 2; ++redo) {
            ReplacedCells old;
            many.fill(region, text, old);
            ASSERT_EQ(textsOf(many), textsOf(single));
            EXPECT_EQ(many.numRawRows(), single.numRawRows());
            EXPECT_EQ(many.numRawCols(), single.numRawCols());
            many.putBack(old);
            ASSERT_EQ(textsOf(many), before);
            EXPECT_TRUE(old.isEmpty());
        }

        // Every cell gets a text of its own, in an order of chance.
        std::vector<std::pair<int, int>> places;
        forEachCell(region, [&](int row, int col) {
            places.emplace_back(many.getRawFromModelRow(row), many.getRawFromModelCol(col));
        });
        std::shuffle(places.begin(), places.end(), random);
        CellPatch patch;
        for (auto const& [row, col] : places) {
            QString const own = QString::number(random() % 3 ? row * 100 + col : 0).repeated(int(random() % 3));
            patch.add(row, col, own.toStdString());
            single.setValueRaw(row, col, own);
        }
        many.exchange(patch);
        ASSERT_EQ(textsOf(many), textsOf(single));
        many.exchange(patch);
        ASSERT_EQ(textsOf(many), before);
    }
}

TEST_F(ManyCells, RowsThatLoseMostAreKeptWholeAndOthersByTheCell) {
    load("aaaa,b\naaaa,b\na,bbbb\n");
    ReplacedCells old;
    data.fill(CellRegion({0, 0, 2, 0}), {}, old);
    EXPECT_EQ(old.wholeRows(), (TakenRows::Blocks{{0, 1}}));
    EXPECT_EQ(old.singleCells(), 1u);
    // An edit of what stands there meanwhile, undone, does not matter.
    data.setValueRaw(0, 1, QStringLiteral("longer"));
    data.setValueRaw(0, 1, QStringLiteral("b"));
    data.putBack(old);
    EXPECT_EQ(shown(), "aaaa b|aaaa b|a bbbb");
}

TEST_F(ManyCells, AClearedTableIsStillSavedWithItsDelimitersAndCanBeReplaced) {
    load("a,b\nc,d\n");
    ReplacedCells old;
    data.fill(CellRegion({0, 0, 9, 9}), {}, old);
    EXPECT_TRUE(data.saveCSV(path("cleared.csv"), false, false));
    EXPECT_EQ(read(path("cleared.csv")), ",\n,\n");
    load("new\n"); // what was replaced goes with its table
    EXPECT_EQ(shown(), "new");
}

} // namespace
