#include "app/NoticeLine.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace {

bool isPlain(QKeyEvent const& key) {
    return (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

} // namespace

NoticeLine::NoticeLine(QString const& action, QWidget* parent)
    : QFrame(parent), label(new QLabel(this)), row(new QBoxLayout(QBoxLayout::LeftToRight, this)),
      buttons(new QBoxLayout(QBoxLayout::LeftToRight)) {
    constexpr int sideMargin = 10;
    constexpr int verticalMargin = 4;
    setAccessibleName(tr("Notice"));
    setSizePolicy(QSizePolicy::Ignored, sizePolicy().verticalPolicy()); // it never makes its window wider
    row->setContentsMargins(sideMargin, verticalMargin, sideMargin, verticalMargin);
    label->setTextFormat(Qt::PlainText); // a file's name may look like markup
    label->setWordWrap(true);
    row->addWidget(label, 1);
    row->addLayout(buttons);
    if (!action.isEmpty()) {
        connect(addButton(action), &QPushButton::clicked, this, &NoticeLine::actionSignal);
    }
    connect(addButton(tr("Dis&miss")), &QPushButton::clicked, this, &NoticeLine::dismiss);
    hide();
}

QPushButton* NoticeLine::addButton(QString const& text) {
    auto* const button = new QPushButton(text, this);
    buttons->addWidget(button);
    return button;
}

void NoticeLine::tell(QString const& newSentence, QStringList const& newPaths) {
    sentence = newSentence;
    paths = newPaths;
    told = withPaths(paths);
    label->setAccessibleName(told);
    label->setAccessibleDescription(told);
    label->setToolTip(QStringLiteral("<p>%1</p>").arg(told.toHtmlEscaped()));
    arrange();
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString NoticeLine::withPaths(QStringList const& shown) const {
    return shown.isEmpty() ? sentence : sentence.arg(shown.join(QStringLiteral(", ")));
}

/// All of them side by side, in pixels.
int NoticeLine::buttonWidth() const {
    int width = -buttons->spacing();
    for (int i = 0; i < buttons->count(); ++i) {
        width += buttons->itemAt(i)->widget()->sizeHint().width() + buttons->spacing();
    }
    return width;
}

// Beside the text where that leaves it enough to be read, else below it.
void NoticeLine::arrange() {
    if (told.isEmpty()) {
        return;
    }
    constexpr int readableLetters = 30;
    int const width = contentsRect().width() - row->contentsMargins().left() - row->contentsMargins().right();
    int const beside = width - buttonWidth() - row->spacing();
    bool const isBelow = beside < readableLetters * fontMetrics().averageCharWidth();
    row->setDirection(isBelow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    buttons->setDirection(buttonWidth() > width ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    constexpr QChar mayBreak(0x200B);
    constexpr QChar mayNotBreak(0x2060);
    QStringList shown;
    for (QString const& path : std::as_const(paths)) {
        QString wrapping = label->fontMetrics().elidedText(path, Qt::ElideMiddle, isBelow ? width : beside);
        wrapping.replace(QLatin1Char('/'), QLatin1Char('/') + QString(mayBreak));
        if (wrapping.startsWith(QLatin1Char('/')))
            wrapping[1] = mayNotBreak; // the root's slash alone says nothing
        shown << wrapping;
    }
    QString const text = withPaths(shown);
    if (label->text() != text) {
        label->setText(text);
    }
}

void NoticeLine::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    arrange();
}

// Also those that a button has left over.
bool NoticeLine::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isPlain(*static_cast<QKeyEvent const*>(event))) {
        event->accept();
        return true;
    }
    return QFrame::event(event);
}

void NoticeLine::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        emit leftSignal();
    } else if (!isPlain(*event)) {
        QFrame::keyPressEvent(event);
    }
}

void NoticeLine::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        arrange();
    }
}

void NoticeLine::dismiss() {
    told.clear();
    hide();
    emit dismissedSignal();
}
