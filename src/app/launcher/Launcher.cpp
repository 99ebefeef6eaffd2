#include "app/launcher/Launcher.h"

#include "app/launcher/LauncherLook.h"
#include "app/launcher/OptionListWidget.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int titleSize = 13;
constexpr int descriptionSize = 10;
constexpr int editorSize = 13;
constexpr int feedbackSize = 12;
constexpr int titleHeight = 20;
constexpr int rowsOfAPage = 5;
constexpr int padding = LauncherLook::shadow + 8;

} // namespace

Launcher::Launcher(Theme const& theme, QWidget* parent)
    : QWidget(parent), theme(theme), editor(new QLineEdit(this)), mostHeight(QWIDGETSIZE_MAX) {
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlag(Qt::FramelessWindowHint);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(5);
    titleLabel = addLabel(titleSize);
    titleLabel->setFixedHeight(std::max(titleHeight, titleLabel->fontMetrics().height()));
    descriptionLabel = addLabel(descriptionSize);
    descriptionLabel->setTextFormat(Qt::RichText);
    descriptionLabel->setWordWrap(true);
    descriptionLabel->hide();
    editor->setFont(LauncherLook::font(editorSize));
    editor->setTextMargins(4, 2, 4, 2);
    editor->installEventFilter(this);
    column->addWidget(editor);
    connect(editor, &QLineEdit::textChanged, this, &Launcher::promptEditedSignal);
}

QLabel* Launcher::addLabel(int pointSize) {
    auto* const label = new QLabel(this);
    label->setFont(LauncherLook::font(pointSize));
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* const column = static_cast<QVBoxLayout*>(layout());
    int const place = column->indexOf(editor);
    column->insertWidget(place < 0 ? column->count() : place, label);
    return label;
}

void Launcher::setQueryTitle(QString const& title) {
    titleLabel->setText(title);
    titleLabel->setAccessibleName(title);
    setAccessibleName(title);
    editor->setAccessibleName(title);
}

void Launcher::setQueryDescription(QString const& description) {
    descriptionLabel->setText(description);
    descriptionLabel->setVisible(!description.isEmpty());
}

void Launcher::setEditorText(QString const& text) {
    editor->setText(text);
}

void Launcher::setEditorSelection(int start, int length) {
    editor->setSelection(start, length);
}

void Launcher::setEditorCursorPosition(int position) {
    editor->setCursorPosition(position);
}

void Launcher::setOptions(std::vector<OptionData> const& options, QString const& noMatch) {
    delete optionList;
    optionList = new OptionListWidget(options, noMatch, theme, this);
    layout()->addWidget(optionList);
    optionList->show(); // at once, so that it counts in the height
    connect(editor, &QLineEdit::textChanged, optionList, &OptionListWidget::updateOptionList);
    connect(optionList, &OptionListWidget::itemClicked, this, &Launcher::respond);
    connect(optionList, &OptionListWidget::selectionChangedSignal, this, &Launcher::selectionChangedSignal);
    connect(optionList, &OptionListWidget::scrolledSignal, this, &Launcher::putFocusInPromptEditor);
    connect(optionList, &OptionListWidget::contentHeightChangedSignal, this, &Launcher::heightChangedSignal);
}

void Launcher::selectOption(QString const& response) {
    if (optionList != nullptr) {
        optionList->selectResponse(response);
    }
}

void Launcher::setupEntryFeedback() {
    if (feedbackLabel == nullptr) {
        feedbackLabel = addLabel(feedbackSize);
        feedbackLabel->setAccessibleName(tr("What the entry means"));
    }
}

void Launcher::setEntryFeedbackText(QString const& text) {
    if (feedbackLabel != nullptr) {
        feedbackLabel->setText(text);
    }
}

void Launcher::setTheme(Theme const& newTheme) {
    theme = newTheme;
    if (optionList != nullptr) {
        optionList->setTheme(theme);
    }
    update();
}

void Launcher::adjustHeight(int extra) {
    auto* const column = static_cast<QVBoxLayout*>(layout());
    if (optionList != nullptr) {
        optionList->setFixedHeight(0);
        extra += optionList->contentHeight();
    }
    column->invalidate();
    int const parts =
        column->hasHeightForWidth() ? column->totalHeightForWidth(width()) : column->totalSizeHint().height();
    int const whole = std::max(std::min(parts + extra, mostHeight), parts);
    if (optionList != nullptr) {
        optionList->setFixedHeight(whole - parts);
    }
    column->activate();
    resize(width(), whole);
}

void Launcher::fit(int newWidth, int newMostHeight) {
    mostHeight = newMostHeight;
    resize(newWidth, height());
    adjustHeight(0);
}

QString Launcher::getSelectedResponseString() const {
    return optionList != nullptr && optionList->shownCount() > 0 ? optionList->selectedResponse() : editor->text();
}

bool Launcher::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)) {
        return QWidget::eventFilter(watched, event);
    }
    auto const* const key = static_cast<QKeyEvent*>(event);
    // Keys of the launcher are no shortcuts of commands while it has the focus.
    if (event->type() == QEvent::ShortcutOverride) {
        static constexpr int plainKeys[] = {Qt::Key_Return, Qt::Key_Enter,  Qt::Key_Up,
                                            Qt::Key_Down,   Qt::Key_PageUp, Qt::Key_PageDown};
        Qt::KeyboardModifiers const modifiers = key->modifiers() & ~Qt::KeypadModifier;
        bool const plain = modifiers == Qt::NoModifier &&
                           std::find(std::begin(plainKeys), std::end(plainKeys), key->key()) != std::end(plainKeys);
        bool const back = key->key() == Qt::Key_Minus && (modifiers & (Qt::ControlModifier | Qt::MetaModifier)) != 0;
        if (plain || back) {
            event->accept();
            return true;
        }
        return false;
    }
    return handleKey(key->key(), key->modifiers() & ~Qt::KeypadModifier);
}

bool Launcher::handleKey(int key, Qt::KeyboardModifiers modifiers) {
    auto const moveBy = [this](int rows) {
        if (optionList != nullptr) {
            optionList->moveSelection(rows);
        }
        return true;
    };
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter: onPressEnter(); return true;
    case Qt::Key_Up: return moveBy(-1);
    case Qt::Key_Down: return moveBy(1);
    case Qt::Key_PageUp: return moveBy(-rowsOfAPage);
    case Qt::Key_PageDown: return moveBy(rowsOfAPage);
    case Qt::Key_Left: return modifiers == Qt::NoModifier && collapseSelection(true);
    case Qt::Key_Right: return modifiers == Qt::NoModifier && collapseSelection(false);
    case Qt::Key_Minus:
        if ((modifiers & (Qt::ControlModifier | Qt::MetaModifier)) != 0) {
            emit goBackSignal();
            return true;
        }
        return false;
    default: return false;
    }
}

bool Launcher::collapseSelection(bool toStart) {
    if (!editor->hasSelectedText()) {
        return false;
    }
    int const position = toStart ? editor->selectionStart() : editor->selectionEnd();
    editor->deselect();
    editor->setCursorPosition(position);
    return true;
}

void Launcher::onPressEnter() {
    respond(getSelectedResponseString());
}

void Launcher::respond(QString const& response) {
    QString const answer = response; // may belong to the list
    int const start = editor->hasSelectedText() ? editor->selectionStart() : 0;
    int const length = editor->selectionLength();
    int const cursor = editor->cursorPosition();
    if (closeOnResponse) {
        leave();
    }
    emit launcherResponseSignal(answer);
    emit launcherResponseWithStateSignal(answer, start, length, cursor);
}

void Launcher::closeLauncher() {
    leave();
    emit launcherClosedSignal();
}

// It is usually one of its own events that ends it.
void Launcher::leave() {
    hide();
    emit launcherLeftSignal();
    deleteLater();
}

void Launcher::putFocusInPromptEditor() {
    editor->setFocus();
}

void Launcher::onCurrentTableChanged(QString const& tableName) {
    if (optionList != nullptr) {
        optionList->onCurrentTableChanged(tableName);
    }
}

void Launcher::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    LauncherLook::paintPanel(painter, rect(), theme);
}
