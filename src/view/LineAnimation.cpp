#include "view/LineAnimation.h"

#include "view/LineSizes.h"

#include <QHeaderView>

#include <algorithm>
#include <utility>

namespace {

constexpr int durationMs = 125;
constexpr int fullSize = 100; // per cent
/// Each tick lays the table out anew by each of the lines, so that more would stutter instead of move.
constexpr std::size_t mostAnimated = 200;

} // namespace

LineAnimation::LineAnimation(LineSizes& sizes, QObject* parent) : QVariantAnimation(parent), sizes(sizes) {
    setStartValue(fullSize);
    setEndValue(0);
    setDuration(durationMs);
    setEasingCurve(QEasingCurve::Linear);
    connect(this, &QVariantAnimation::valueChanged, this, &LineAnimation::setSizes);
    connect(this, &QAbstractAnimation::finished, this, &LineAnimation::end);
}

void LineAnimation::grow(std::vector<int> const& lines, int size) {
    finish();
    if (canBeSeen(lines)) {
        for (int const line : lines)
            sizes.pretend(line, 0);
        run(lines, size, {});
        return;
    }
    for (int const line : lines)
        sizes.pretend(line, size);
}

void LineAnimation::collapse(std::vector<int> const& lines, std::function<void()> const& atEnd) {
    finish();
    if (canBeSeen(lines))
        run(lines, 0, atEnd);
    else
        atEnd();
}

void LineAnimation::run(std::vector<int> const& lines, int size, std::function<void()> const& atEnd) {
    linesToAnimate = lines;
    targetSizes.clear();
    for (int const line : lines)
        targetSizes.push_back(sizes.size(line));
    endSize = size;
    whenDone = atEnd;
    QAbstractAnimation::start();
}

bool LineAnimation::canBeSeen(std::vector<int> const& lines) const {
    QHeaderView const& header = sizes.header();
    if (lines.size() > mostAnimated || !header.isVisible() || !header.parentWidget()->updatesEnabled())
        return false;
    int const extent = header.orientation() == Qt::Vertical ? header.viewport()->height() : header.viewport()->width();
    return std::any_of(lines.begin(), lines.end(), [&](int line) {
        int const position = header.sectionViewportPosition(line);
        return position < extent && position + sizes.size(line) >= 0;
    });
}

void LineAnimation::setSizes(QVariant const& value) {
    for (std::size_t at = 0; at < linesToAnimate.size(); ++at)
        sizes.pretend(linesToAnimate[at], endSize + (targetSizes[at] - endSize) * value.toInt() / fullSize);
}

void LineAnimation::finish() {
    if (state() == Stopped)
        return;
    stop();
    end();
}

void LineAnimation::end() {
    setSizes(0);
    linesToAnimate.clear();
    if (auto const done = std::exchange(whenDone, {}))
        done();
}
