#include "view/HiddenNotice.h"

#include "appearance/Theme.h"
#include "model/TableModel.h"
#include "view/AbstractTableView.h"

#include <QAction>
#include <QEvent>

#include <algorithm>

HiddenNotice::HiddenNotice(AbstractTableView* view) : QLabel(view), view(view) {
    constexpr int pointSize = 10;
    setFont(QFont(QStringLiteral("Lucida Sans Unicode"), pointSize));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(fontMetrics().height());
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    view->viewport()->installEventFilter(this);
    TableModel const* const model = view->tableModel();
    connect(model, &TableModel::tableSizeChangedSignal, this, &HiddenNotice::refresh);
    connect(model, &TableModel::toggleTransposeSignal, this, &HiddenNotice::refresh);
}

void HiddenNotice::setActions(CommandActions const& newActions) {
    actions = newActions;
    refresh();
}

void HiddenNotice::setTheme(Theme const& theme) {
    setStyleSheet(QStringLiteral("QLabel { color: %1; background-color: %2; }")
                      .arg(theme.getTextColor().name(), theme.getCellColor().name()));
}

void HiddenNotice::refresh() {
    TableModel const& model = *view->tableModel();
    bool const noRow = model.rowCountRaw() > 0 && model.rowCountModel() == 0;
    bool const noCol = model.columnCountRaw() > 0 && model.columnCountModel() == 0;
    QString const showRows = nameOf(QStringLiteral("Show All Hidden Row(s)"));
    QString const showCols = nameOf(QStringLiteral("Show All Hidden Column(s)"));
    if (noRow && noCol)
        setText(tr("All rows and columns are hidden.\n%1 and %2 bring them back.").arg(showRows, showCols));
    else if (noRow)
        setText(tr("All rows are hidden.\n%1 brings them back.").arg(showRows));
    else if (noCol)
        setText(tr("All columns are hidden.\n%1 brings them back.").arg(showCols));
    setVisible(noRow || noCol);
    if (noRow || noCol)
        place();
}

QString HiddenNotice::nameOf(QString const& command) const {
    QAction const* const action = actions.value(command);
    QString const shortcut = action == nullptr ? QString() : action->shortcut().toString(QKeySequence::NativeText);
    QString const name = QStringLiteral("\"%1\"").arg(command);
    return shortcut.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, shortcut);
}

void HiddenNotice::place() {
    QRect const cells = view->viewport()->geometry();
    QSize const wanted = fontMetrics().size(0, text()) + QSize(2 * margin(), 2 * margin());
    int const width = std::min(wanted.width(), cells.width());
    resize(width, std::min(heightForWidth(width), cells.height()));
    move(cells.center() - rect().center());
    raise();
}

bool HiddenNotice::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && !isHidden())
        place();
    return QLabel::eventFilter(watched, event);
}
