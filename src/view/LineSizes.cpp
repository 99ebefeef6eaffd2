#include "view/LineSizes.h"

#include "model/TableModel.h"
#include "view/GridLimits.h"
#include "view/PausedUpdates.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

namespace {

/// As the header's model has them by now.
int sectionsOf(QHeaderView const& header) {
    QAbstractItemModel const* const model = header.model();
    if (model == nullptr)
        return 0;
    return header.orientation() == Qt::Vertical ? model->rowCount() : model->columnCount();
}

/// While it lives a header is not laid out and painted anew for each of its sections, and tells nobody of them.
class QuietHeader {
public:
    explicit QuietHeader(QHeaderView& header) : blocker(&header), updates(header) {}

private:
    QSignalBlocker blocker;
    PausedUpdates updates; // ends before the header may speak again
};

} // namespace

LineSizes::LineSizes(Axis axis, QHeaderView& header, QObject* parent) : QObject(parent), axis(axis) {
    add(header);
}

void LineSizes::addBand(QHeaderView& header) {
    header.setDefaultSectionSize(defaultSize());
    add(header);
}

void LineSizes::add(QHeaderView& header) {
    std::size_t const at = shown.size();
    shown.push_back({&header});
    connect(&header, &QHeaderView::sectionResized, this,
            [this, at](int line, int, int size) { onResized(at, line, size); });
    connect(&header, &QHeaderView::sectionCountChanged, this, [this, at](int before, int now) {
        if (now > before)
            shown[at].pendingFrom = std::min(shown[at].pendingFrom, before);
    });
}

void LineSizes::setTable(TableModel* model) {
    if (table != nullptr)
        disconnect(table, nullptr, this, nullptr);
    table = model;
    layoutChanging = false;
    connect(table, &QAbstractItemModel::layoutAboutToBeChanged, this, [this] { layoutChanging = true; });
    connect(table, &QAbstractItemModel::layoutChanged, this, [this] { layoutChanging = false; });
    outdate();
}

LineSizeStore& LineSizes::store() const {
    return table->getTableData().lineSizes(axis);
}

int LineSizes::rawLine(int line) const {
    TableData const& data = table->getTableData();
    return axis == Axis::Rows ? data.getRawFromModelRow(line) : data.getRawFromModelCol(line);
}

int LineSizes::size(int line) const {
    return header().sectionSize(line);
}

/// Not as the headers show it.
int LineSizes::ownSize(int line) const {
    return store().size(rawLine(line)).value_or(defaultSize());
}

/// What a line with a size of its own is shown at most in.
int LineSizes::mostShown() const {
    return GridLimits::mostOf(store().sizedCount(), store().sizedTotal());
}

int LineSizes::defaultSize() const {
    return header().defaultSectionSize();
}

bool LineSizes::areDefault() const {
    return store().areDefault();
}

/// A line is shown no further behind than it is stored.
int LineSizes::end() const {
    return store().end();
}

// Defaults.

void LineSizes::forgetAll() {
    store().clear();
    outdate();
}

void LineSizes::changeDefault(int size) {
    if (size == wantedDefault)
        return;
    wantedDefault = size;
    giveDefault();
}

int LineSizes::boundDefault() const {
    if (table == nullptr)
        return wantedDefault;
    return GridLimits::sizeOf(wantedDefault, axis == Axis::Rows ? table->rowCountModel() : table->columnCountModel());
}

void LineSizes::giveDefault() {
    givenDefault = boundDefault();
    int const size = givenDefault;
    for (Shown& each : shown) {
        // A table of a million rows would send as many signals.
        QuietHeader const quiet(*each.header);
        each.header->setDefaultSectionSize(size);
        each.uniform = true;
    }
    outdate();
}

// Single lines.

void LineSizes::setByHand(int line, int size) {
    store().setByHand(rawLine(line), size);
    showAt(line, size);
}

bool LineSizes::isByHand(int line) const {
    return store().isByHand(rawLine(line));
}

void LineSizes::fit(int line, int size) {
    if (size == defaultSize())
        return reset(line);
    store().fit(rawLine(line), size);
    showAt(line, size);
}

void LineSizes::widen(int line, int size) {
    if (ownSize(line) < size)
        fit(line, size);
}

void LineSizes::reset(int line) {
    store().reset(rawLine(line));
    showAt(line, defaultSize());
}

void LineSizes::keepAbove(int line, int leastByHand) {
    if (ownSize(line) < (isByHand(line) ? leastByHand : defaultSize()))
        reset(line);
}

void LineSizes::cut(int line, int most) {
    if (ownSize(line) <= most)
        return;
    if (isByHand(line))
        setByHand(line, most);
    else
        fit(line, most);
}

void LineSizes::pretend(int line, int size) {
    showAt(line, size);
}

void LineSizes::showAt(int line, int size) {
    // Of all lines, when they are shown.
    if (givenMost != nothing || mostShown() != nothing)
        return outdate();
    QScopedValueRollback<bool> const guard(showing, true);
    for (Shown& each : shown) {
        if (line >= each.header->count() || each.header->sectionSize(line) == size)
            continue;
        each.header->resizeSection(line, size);
        each.uniform = each.uniform && size == each.header->defaultSectionSize();
    }
}

void LineSizes::onResized(std::size_t at, int line, int size) {
    if (showing || table == nullptr)
        return;
    shown[at].uniform = false;
    setByHand(line, size);
    emit resizedByHand(line);
}

// Many lines.

void LineSizes::resetBehindData() {
    int const count = axis == Axis::Rows ? table->rowCountRaw() : table->columnCountRaw();
    if (store().end() <= count)
        return;
    store().resetFrom(count);
    outdate();
}

void LineSizes::keepAllAbove(int leastByHand) {
    if (store().dropBelow(leastByHand, defaultSize()))
        outdate();
}

void LineSizes::cutAll(int most) {
    if (store().cutAll(most))
        outdate();
}

void LineSizes::outdate() {
    for (Shown& each : shown)
        each.pendingFrom = 0;
}

// What the headers show.

bool LineSizes::show() {
    if (table == nullptr)
        return false;
    if (quint64 const revision = table->getTableData().linesRevision(axis); revision != shownRevision) {
        shownRevision = revision;
        outdate();
    }
    if (int const most = mostShown(); most != givenMost) {
        givenMost = most;
        outdate();
    }
    bool changed = !layoutChanging && wantedDefault > 0 && givenDefault != boundDefault();
    if (changed)
        giveDefault();
    for (Shown& each : shown)
        changed = showPending(each) || changed;
    return changed;
}

bool LineSizes::showPending(Shown& each) {
    // Headers keep sizes aside while the layout changes.
    if (layoutChanging)
        return false;
    // A header that has not yet heard of an insertion or removal would move the sizes once more when it does.
    if (each.header->count() != sectionsOf(*each.header))
        return false;
    int const from = std::exchange(each.pendingFrom, nothing);
    if (from >= each.header->count() || (each.uniform && store().areDefault()))
        return false;
    QuietHeader const quiet(*each.header);
    constexpr int many = 8; // sections for each that has a size of its own
    if (from > 0 || store().sizedCount() > each.header->count() / many)
        return resizeSections(each, from);
    resizeFew(each);
    return true;
}

/// A header gives all of its sections the default in no time; the others are told one by one.
void LineSizes::resizeFew(Shown& each) {
    QHeaderView& header = *each.header;
    LineSizeStore const& sizes = store();
    TableData const& data = table->getTableData();
    header.setDefaultSectionSize(header.defaultSectionSize());
    for (int raw = sizes.nextSized(0); raw < sizes.end(); raw = sizes.nextSized(raw + 1)) {
        int const line = axis == Axis::Rows ? data.getModelFromRawRow(raw, false) : data.getModelFromRawCol(raw, false);
        if (line >= 0 && line < header.count())
            header.resizeSection(line, std::min(*sizes.size(raw), givenMost));
    }
    each.uniform = sizes.areDefault();
}

bool LineSizes::resizeSections(Shown& each, int from) {
    QHeaderView& header = *each.header;
    LineSizeStore const& sizes = store();
    TableData const& data = table->getTableData();
    auto const& concealed = axis == Axis::Rows ? data.getConcealedRowsRaw() : data.getConcealedColsRaw();
    int const fallback = header.defaultSectionSize();
    int const count = header.count();
    int raw = rawLine(from);
    auto hidden = std::lower_bound(concealed.begin(), concealed.end(), raw);
    bool const wasUniform = each.uniform;
    bool changed = false;
    // Of sections of one size only those need a look for which there is another one.
    for (int line = from; line < count && (!wasUniform || raw < sizes.end()); ++line, ++raw) {
        for (; hidden != concealed.end() && *hidden == raw; ++hidden)
            ++raw;
        int const wanted = std::min(sizes.size(raw).value_or(fallback), givenMost);
        each.uniform = each.uniform && wanted == fallback;
        if (header.sectionSize(line) == wanted)
            continue;
        header.resizeSection(line, wanted);
        changed = true;
    }
    return changed;
}
