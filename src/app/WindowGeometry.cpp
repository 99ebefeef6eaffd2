#include "app/WindowGeometry.h"

#include "app/CommandLine.h"

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

QRect requestedGeometry(QRect const& current, CommandLine const& line, QRect const& screens) {
    QSize const size(line.width >= 1 ? std::min(line.width, screens.width()) : current.width(),
                     line.height >= 1 ? std::min(line.height, screens.height()) : current.height());
    auto const place = [](int wanted, int present, int last, int length) {
        if (wanted < 0) {
            return present;
        }
        return wanted <= last ? wanted : std::max(last + 1 - length, 0);
    };
    return {QPoint(place(line.x, current.x(), screens.right(), size.width()),
                   place(line.y, current.y(), screens.bottom(), size.height())),
            size};
}

void applyRequestedGeometry(QWidget& window, CommandLine const& line) {
    QScreen const* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) {
        return;
    }
    QRect const wanted = requestedGeometry(QRect(window.pos(), window.size()), line, screen->virtualGeometry());
    window.resize(wanted.size());
    window.move(wanted.topLeft());
}
