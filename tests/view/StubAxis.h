#pragma once

#include "view/ScrollAxis.h"

#include <algorithm>
#include <map>

/// An axis of any number of sections of one size, but for a few.
class StubAxis : public ScrollAxis {
public:
    int sections = 0;
    int sectionSize = 20;
    std::map<int, int> otherSizes;
    int viewport = 100;
    int bandExtent = 0;
    int bandCount = 0;
    int slider = 0;
    int barMaximum = 0;

    int count() const override { return sections; }
    qint64 position(int section) const override {
        int const counted = std::min(section, sections);
        qint64 position = qint64(counted) * sectionSize;
        for (auto const& [other, size] : otherSizes)
            position += other < counted ? size - sectionSize : 0;
        return position;
    }
    int size(int section) const override {
        auto const other = otherSizes.find(section);
        if (section < 0 || section >= sections)
            return 0;
        return other == otherSizes.end() ? sectionSize : other->second;
    }
    int sectionAt(int pixel) const override {
        qint64 const wanted = qint64(slider) + pixel;
        int first = 0;
        int last = sections - 1;
        while (first <= last) {
            int const middle = first + (last - first) / 2;
            if (position(middle) > wanted)
                last = middle - 1;
            else if (position(middle) + size(middle) <= wanted)
                first = middle + 1;
            else
                return middle;
        }
        return -1;
    }
    int extent() const override { return viewport; }
    int frozenExtent() const override { return bandExtent; }
    int frozenCount() const override { return bandCount; }
    int value() const override { return slider; }
    int maximum() const override { return barMaximum; }
};

/// 50 sections of 20 pixels in a viewport of 100, scrolled to `slider`.
inline StubAxis fiftySections(int slider) {
    StubAxis axis;
    axis.sections = 50;
    axis.slider = slider;
    axis.barMaximum = 900;
    return axis;
}
