#include "model/ScreenScale.h"

#include <QGuiApplication>
#include <QScreen>

double Utilities::getDpiScalingFactor() {
    QScreen const* const screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInch() / 96.0 : 1.0;
}
