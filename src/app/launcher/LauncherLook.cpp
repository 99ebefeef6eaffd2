#include "app/launcher/LauncherLook.h"

#include <QPainter>

namespace {

constexpr qreal radius = 7;

} // namespace

QFont LauncherLook::font(int pointSize) {
    QFont font(QStringLiteral("Lucida Sans Unicode"), pointSize);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

void LauncherLook::paintPanel(QPainter& painter, QRect const& area, Theme const& theme) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 22));
    for (int inset = 0; inset < shadow; ++inset) {
        qreal const corner = radius + shadow - inset;
        painter.drawRoundedRect(area.adjusted(inset, inset + 1, -inset, -inset), corner, corner);
    }
    QRectF const panel = QRectF(area).adjusted(shadow - 0.5, shadow - 0.5, 0.5 - shadow, 0.5 - shadow);
    painter.setPen(theme.getBackground4Color());
    painter.setBrush(theme.getBackground2Color());
    painter.drawRoundedRect(panel, radius, radius);
}
