#include "app/LoadProgressOverlay.h"

LoadProgressOverlay::LoadProgressOverlay(QWidget* parent) : QLabel(parent) {
    constexpr int pixelSize = 75;
    QFont large(QStringLiteral("Lucida Sans Unicode"));
    large.setPixelSize(pixelSize);
    setFont(large);
    setAlignment(Qt::AlignCenter);
    setAccessibleName(tr("Load progress"));
    setText(QStringLiteral("0%"));
}

void LoadProgressOverlay::setProgress(int done, int steps) {
    setText(QStringLiteral("%1%").arg(steps > 0 ? done * 100 / steps : 0));
}
