#include "app/GoneTables.h"

#include "app/NoticeLine.h"
#include "view/TableView.h"

#include <QApplication>
#include <QEvent>
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
    if (userActed)
        std::erase_if(kept, [](Kept const& each) { return !each.edited; });
    userActed = false;
    qApp->installEventFilter(this); // again: it counts once
    kept.push_back({std::move(table), edited});
    tell();
}

void GoneTables::tell() {
    QStringList paths;
    for (Kept const& each : kept)
        paths << QFileInfo(each.table->getFilepath()).absoluteFilePath();
    line->tell(kept.size() == 1
                   ? tr("This file was deleted or moved by another program, and its tab was closed: %1")
                   : tr("These files were deleted or moved by another program, and their tabs were closed: %1"),
               paths);
}

bool GoneTables::eventFilter(QObject* watched, QEvent* event) {
    QEvent::Type const type = event->type();
    bool const byUser = type == QEvent::KeyPress || type == QEvent::ShortcutOverride ||
                        type == QEvent::MouseButtonPress || type == QEvent::Wheel;
    auto const* const widget = byUser ? qobject_cast<QWidget const*>(watched) : nullptr;
    if (widget != nullptr && widget->window() == line->window()) {
        userActed = true;
        qApp->removeEventFilter(this);
    }
    return false;
}

void GoneTables::clear() {
    kept.clear();
    qApp->removeEventFilter(this);
}

void GoneTables::giveBack() {
    emitAll(std::exchange(kept, {}));
}

void GoneTables::giveBackEdited() {
    std::vector<Kept> wanted;
    for (Kept& each : std::exchange(kept, {}))
        (each.edited ? wanted : kept).push_back(std::move(each));
    if (!wanted.empty())
        emitAll(std::move(wanted));
}

void GoneTables::emitAll(std::vector<Kept> wanted) {
    if (kept.empty()) {
        clear();
        line->dismiss();
    } else {
        tell();
    }
    for (Kept& each : wanted)
        emit takenBackSignal(each.table.release());
}
