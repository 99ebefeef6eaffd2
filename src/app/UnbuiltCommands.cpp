#include "app/UnbuiltCommands.h"

#include "view/MsgBox.h"

#include <QAction>

void UnbuiltCommands::tellNotBuilt() {
    auto const* const action = qobject_cast<QAction const*>(sender());
    QString const name = action == nullptr ? tr("This command") : action->text().remove(QLatin1Char('&'));
    MsgBox::inform(this, getTheme(), tr("%1\n\nThis version of Gridwright cannot do this yet.").arg(name));
}
