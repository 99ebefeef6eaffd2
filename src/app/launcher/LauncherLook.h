#pragma once

#include "appearance/Theme.h"

#include <QFont>
#include <QRect>

class QPainter;

/// How the launcher and the strips above it look alike.
namespace LauncherLook {

/// Pixels of a panel's edge that its shadow takes.
constexpr int shadow = 6;

QFont font(int pointSize);

/// The rounded field that stands out from the table below it, with its shadow inside of `area`.
void paintPanel(QPainter& painter, QRect const& area, Theme const& theme);

} // namespace LauncherLook
