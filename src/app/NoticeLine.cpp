#include "app/NoticeLine.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

NoticeLine::NoticeLine(QString const& action, QWidget* parent) : QFrame(parent), label(new QLabel(this)) {
    constexpr int sideMargin = 10;
    constexpr int verticalMargin = 4;
    setAccessibleName(tr("Notice"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(sideMargin, verticalMargin, sideMargin, verticalMargin);
    label->setTextFormat(Qt::PlainText); // a file's name may look like markup
    label->setWordWrap(true);
    layout->addWidget(label, 1);
    if (!action.isEmpty()) {
        auto* const button = new QPushButton(action, this);
        connect(button, &QPushButton::clicked, this, &NoticeLine::actionSignal);
        layout->addWidget(button);
    }
    auto* const close = new QPushButton(tr("Dis&miss"), this);
    connect(close, &QPushButton::clicked, this, &NoticeLine::dismiss);
    layout->addWidget(close);
    hide();
}

void NoticeLine::tell(QString const& sentence, QStringList const& paths) {
    QStringList wrapping = paths;
    wrapping.replaceInStrings(QStringLiteral("/"), QStringLiteral("/\u200B"));
    told = sentence.arg(paths.join(QStringLiteral(", ")));
    label->setText(sentence.arg(wrapping.join(QStringLiteral(", "))));
    label->setAccessibleName(told);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeLine::dismiss() {
    told.clear();
    hide();
    emit dismissedSignal();
}
