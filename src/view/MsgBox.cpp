#include "view/MsgBox.h"

#include "core/ModalHold.h"

#include <QPushButton>

#include <algorithm>
#include <utility>

namespace {

MsgBox::Answer answer;

} // namespace

void MsgBox::setAnswer(Answer newAnswer) {
    answer = std::move(newAnswer);
}

int MsgBox::exec() {
    ModalHold const hold;
    if (!answer)
        return QMessageBox::exec();
    if (QAbstractButton* const button = answer(*this))
        button->click();
    return result();
}

MsgBox::MsgBox(QWidget* parent) : QMessageBox(parent) {
    setWindowTitle(QStringLiteral("Gridwright"));
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void MsgBox::setTheme(Theme const& theme) {
    setStyleSheet(theme.getStyleSheet());
}

void MsgBox::conditionButtons() {
    constexpr int minimumHeight = 28;
    for (QAbstractButton* button : buttons()) {
        button->setIcon(QIcon());
        button->setMinimumHeight(minimumHeight);
    }
    if (defaultButton() == nullptr && !buttons().isEmpty()) {
        setDefaultButton(qobject_cast<QPushButton*>(buttons().constFirst()));
    }
}

void MsgBox::widen(QPushButton& button, int width) {
    button.ensurePolished();
    button.setMinimumWidth(std::max(width, button.sizeHint().width()));
}

void MsgBox::inform(QWidget* parent, Theme const& theme, QString const& text) {
    MsgBox box(parent);
    box.setTheme(theme);
    // A file's name may look like markup; it is shown as it stands.
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.addButton(QMessageBox::Ok);
    box.conditionButtons();
    box.exec();
}
