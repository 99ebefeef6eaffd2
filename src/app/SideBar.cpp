#include "app/SideBar.h"

SideBar::SideBar(QWidget* parent) : QWidget(parent) {
    setAccessibleName(tr("Side bar"));
    hide();
}
