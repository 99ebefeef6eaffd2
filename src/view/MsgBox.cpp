#include "view/MsgBox.h"

#include "core/ModalHold.h"
#include "view/KeyRest.h"

#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include <optional>
#include <utility>

namespace {

MsgBox::Answer answer;

} // namespace

void MsgBox::setAnswer(Answer newAnswer) {
    answer = std::move(newAnswer);
}

int MsgBox::exec() {
    ModalHold const hold;
    if (!answer) {
        std::optional<KeyRest> rest;
        if (KeyRest::isNeeded())
            rest.emplace(*this);
        return QMessageBox::exec();
    }
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
    constexpr QSize least(88, 28);
    for (QAbstractButton* button : buttons()) {
        button->setIcon(QIcon());
        enlarge(*button, least);
    }
    if (defaultButton() == nullptr && !buttons().isEmpty()) {
        setDefaultButton(qobject_cast<QPushButton*>(buttons().constFirst()));
    }
}

// A file's name may look like markup; it is shown as it stands.
void MsgBox::nameFile(QString const& path, QString const& remark) {
    QString const file = QFileInfo(path).absoluteFilePath();
    setInformativeText(remark.isEmpty() ? file : file + QStringLiteral("\n\n") + remark);
    if (auto* const label = findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextFormat(Qt::PlainText);
}

// Once a minimum is set, what the label needs no longer counts in a layout.
void MsgBox::enlarge(QAbstractButton& button, QSize const& least) {
    button.ensurePolished();
    button.setMinimumSize(button.sizeHint().expandedTo(least).expandedTo(button.minimumSize()));
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
