#include "app/MenuArrow.h"

#include <QIcon>
#include <QMenuBar>
#include <QPainter>
#include <QStyle>
#include <QToolButton>

void MenuArrow::tint(QMenuBar& bar, QColor const& color) {
    auto* const button = bar.findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
    if (button == nullptr)
        return;
    QIcon const plain = bar.style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, &bar);
    QPixmap image = plain.pixmap(button->iconSize(), bar.devicePixelRatio());
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    button->setIcon(image);
}
