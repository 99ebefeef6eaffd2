#include "app/WindowGeometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

QSize defaultWindowSize(QRect const& available, double dpi) {
    constexpr double widthInInches = 18.0;
    constexpr double widthShare = 0.95;
    constexpr double heightShare = 0.92;
    return {std::min(static_cast<int>(dpi * widthInInches), static_cast<int>(available.width() * widthShare)),
            static_cast<int>(available.height() * heightShare)};
}

QPoint centredWindowPosition(QRect const& available, QSize const& size) {
    return {(available.width() - size.width()) / 2, (available.height() - size.height()) / 2};
}

void applyDefaultGeometry(QWidget& window) {
    QScreen const* first = QGuiApplication::screens().value(0);
    if (first == nullptr) {
        return;
    }
    QRect const available = first->availableGeometry();
    QSize const size = defaultWindowSize(available, QGuiApplication::primaryScreen()->logicalDotsPerInchX());
    window.resize(size);
    window.move(centredWindowPosition(available, size));
}
