#include "view/ScrollGeometry.h"

#include <algorithm>
#include <climits>

namespace {

/// Positions are counted in 64 bits: the rows of a large file exceed the range of a scroll bar.
int toBar(qint64 position, qint64 maximum) {
    return int(std::clamp<qint64>(position, 0, std::max<qint64>(maximum, 0)));
}

qint64 lastScroll(ScrollAxis const& axis) {
    return axis.position(axis.count()) - axis.extent();
}

int firstVisible(ScrollAxis const& axis) {
    int const frozen = axis.frozenExtent();
    return axis.sectionAt(frozen > 0 ? frozen + 1 : 0);
}

int walkForward(ScrollAxis const& axis, int first, int distance) {
    int const last = axis.count() - 1;
    int target = first + 1;
    qint64 passed = axis.size(first);
    while (target < last && axis.size(target) + passed < distance) {
        passed += axis.size(target);
        ++target;
    }
    return target;
}

int walkBack(ScrollAxis const& axis, int first, int distance) {
    int section = first - 1;
    if (section <= 0)
        return 0;
    qint64 passed = axis.size(section);
    while (section > 0) {
        int const target = section;
        --section;
        if (axis.size(section) + passed >= distance)
            return target;
        passed += axis.size(section);
    }
    return 0;
}

} // namespace

int ScrollGeometry::sliderAfterMove(ScrollAxis const& axis, int oldSection, int newSection) {
    qint64 const start = axis.position(newSection);
    int const frozen = axis.frozenExtent();
    int slider = axis.value();
    if (frozen > 0 && oldSection < axis.frozenCount() && newSection >= axis.frozenCount())
        slider = toBar(start - axis.extent() / 2, axis.maximum());
    // The end of the section first and then its start, so that the start wins if both do not fit.
    qint64 const endTarget = start + axis.size(newSection) - axis.extent();
    if (endTarget > slider)
        slider = toBar(endTarget, axis.maximum());
    qint64 const startTarget = std::max<qint64>(start - frozen, 0);
    if (startTarget < slider)
        slider = toBar(startTarget, axis.maximum());
    return slider;
}

std::optional<ScrollGeometry::Target> ScrollGeometry::scrollToSection(ScrollAxis const& axis, int section,
                                                                      bool ifNeeded, bool minimal) {
    qint64 const start = axis.position(section);
    qint64 const end = start + axis.size(section);
    qint64 const half = axis.extent() / 2;
    int const frozen = axis.frozenExtent();
    qint64 target = 0;
    if (ifNeeded) {
        qint64 const lowest = std::max<qint64>(end - axis.extent(), 0);
        qint64 const highest = std::min(lastScroll(axis), std::max(start - frozen, lowest));
        if (axis.value() >= lowest && axis.value() <= highest)
            return std::nullopt;
        if (minimal)
            target = axis.value() < lowest ? std::min(highest, lowest) : highest;
        else
            target = std::min(std::max((start + end) / 2 - half - frozen / 2, lowest), highest);
    } else {
        // The half of the frozen band counts the other way here, and the section comes to rest nearer to it.
        target = std::min(lastScroll(axis), std::max<qint64>(start - half + frozen / 2, 0));
    }
    int const slider = toBar(target, INT_MAX);
    return Target{slider, std::max(slider, axis.maximum())};
}

std::optional<int> ScrollGeometry::walk(ScrollAxis const& axis, bool forward, int distance) {
    int const first = firstVisible(axis);
    if (first < 0 || (!forward && axis.value() == 0))
        return std::nullopt;
    int const target = forward ? walkForward(axis, first, distance) : walkBack(axis, first, distance);
    return toBar(axis.position(target) - axis.frozenExtent(), axis.maximum());
}

int ScrollGeometry::pageDistance(ScrollAxis const& axis) {
    return int(axis.extent() * 0.9);
}

std::optional<int> ScrollGeometry::snap(ScrollAxis const& axis) {
    if (axis.value() == axis.maximum())
        return std::nullopt;
    int const frozen = axis.frozenExtent();
    int const section = axis.sectionAt(frozen + 1);
    if (section < 0)
        return std::nullopt;
    qint64 const target = axis.position(section) - frozen;
    if (target == axis.value())
        return std::nullopt;
    return toBar(target, axis.maximum());
}

int ScrollGeometry::sectionOneScreenOn(ScrollAxis const& axis, bool forward) {
    int const target = axis.sectionAt(forward ? int(axis.extent() * qint64(3) / 2) : -axis.extent() / 2);
    if (target >= 0 || axis.count() == 0)
        return target;
    return forward ? axis.count() - 1 : 0;
}

int ScrollGeometry::maximumFor(ScrollAxis const& axis) {
    return toBar(lastScroll(axis), INT_MAX);
}
