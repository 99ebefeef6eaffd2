#include "app/GoneTables.h"

#include "app/NoticeLine.h"
#include "view/TableView.h"

#include <QFileInfo>

#include <utility>

GoneTables::GoneTables(QWidget* parent) : QObject(parent), line(new NoticeLine(tr("&Open Last Contents"), parent)) {
    connect(line, &NoticeLine::actionSignal, this, &GoneTables::giveBack);
    connect(line, &NoticeLine::dismissedSignal, this, &GoneTables::clear);
}

GoneTables::~GoneTables() {
    clear();
}

void GoneTables::keep(std::unique_ptr<TableView> table, bool edited) {
    table->hide();
    std::erase_if(kept, [](Kept const& each) { return !each.edited; });
    kept.push_back({std::move(table), edited});
    QStringList paths;
    for (Kept const& each : kept)
        paths << QFileInfo(each.table->getFilepath()).absoluteFilePath();
    line->tell(kept.size() == 1
                   ? tr("This file was deleted or moved by another program, and its tab was closed: %1")
                   : tr("These files were deleted or moved by another program, and their tabs were closed: %1"),
               paths);
}

void GoneTables::clear() {
    kept.clear();
}

void GoneTables::giveBack() {
    std::vector<Kept> wanted = std::exchange(kept, {});
    line->dismiss();
    for (Kept& each : wanted)
        emit takenBackSignal(each.table.release());
}
