#pragma once

#include <QVariantAnimation>

#include <functional>
#include <vector>

class LineSizes;

/// Lets rows or columns collapse or grow, all together, so that the eye sees where lines go and come. What
/// they show meanwhile is not their own size.
class LineAnimation : public QVariantAnimation {
    Q_OBJECT

public:
    explicit LineAnimation(LineSizes& sizes, QObject* parent);

    // One that still runs ends at once. Lines that cannot be followed by eye, being many or out of sight, do not keep
    // the user waiting either.

    /// Lets the lines, which are new, grow to `size`.
    void grow(std::vector<int> const& lines, int size);
    /// Lets the lines collapse, and then calls `atEnd`, which is to remove them.
    void collapse(std::vector<int> const& lines, std::function<void()> const& atEnd);
    /// Ends a running animation at once, as if its time were up.
    void finish();
    /// Gives the lines their sizes at a value of the animation: 100 at the start, 0 at the end.
    void setSizes(QVariant const& value);

private:
    void run(std::vector<int> const& lines, int size, std::function<void()> const& atEnd);
    void end();
    bool canBeSeen(std::vector<int> const& lines) const;

    LineSizes& sizes;
    std::vector<int> linesToAnimate;
    std::vector<int> targetSizes; ///< as the lines were at the start
    int endSize = 0;
    std::function<void()> whenDone; ///< empty while nothing is animated
};
