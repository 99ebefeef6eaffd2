#include "view/FileDialog.h"

#include "core/ModalHold.h"

#include <QFileDialog>

#include <utility>

namespace {

FileDialog::Answer& givenAnswer() {
    static FileDialog::Answer answer;
    return answer;
}

} // namespace

QStringList FileDialog::filesToOpen(QWidget* parent, QString const& title) {
    ModalHold const hold;
    return givenAnswer() ? givenAnswer()(title) : QFileDialog::getOpenFileNames(parent, title);
}

QString FileDialog::fileToSave(QWidget* parent, QString const& title, QString const& path, QString const& filter) {
    ModalHold const hold;
    return givenAnswer() ? givenAnswer()(title).value(0) : QFileDialog::getSaveFileName(parent, title, path, filter);
}

void FileDialog::setAnswer(Answer answer) {
    givenAnswer() = std::move(answer);
}
