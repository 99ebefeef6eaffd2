#include "view/TableDelegate.h"

#include "view/QuickEdit.h"

#include <QKeyEvent>

#include <algorithm>
#include <utility>

QWidget* TableDelegate::createEditor(QWidget* parent, QStyleOptionViewItem const& option,
                                     QModelIndex const& index) const {
    auto* const editor = new QuickEdit(parent);
    editor->setEditorColors(editorBackgroundColor, textColor);
    QFont editorFont = font;
    editorFont.setPixelSize(textSize);
    if (isHighlightedHeader(index))
        editorFont.setWeight(QFont::Bold);
    editor->setFont(editorFont);
    editor->setOverwriteOnEdit(overwriteOnEdit);
    editor->setGeometry(option.rect);
    emit editorCreatedSignal(editor);
    connect(editor, &QLineEdit::textEdited, this, &TableDelegate::textEditedSignal);
    return editor;
}

bool TableDelegate::isHighlightedHeader(QModelIndex const& index) const {
    return (highlightHeaderRows && index.row() < numHeaderRows) ||
           (highlightHeaderCols && index.column() < numHeaderCols);
}

void TableDelegate::setEditorData(QWidget* editor, QModelIndex const& index) const {
    bool const empty = std::exchange(startEmpty, false);
    QString const text = empty ? QString() : index.data(Qt::EditRole).toString();
    auto* const lineEdit = static_cast<QuickEdit*>(editor);
    lineEdit->setText(text);
    if (!suppressTextEdited)
        emit textEditedSignal(text);
}

void TableDelegate::setModelData(QWidget*, QAbstractItemModel*, QModelIndex const&) const {}

/// A cell that reaches past the far edge of its view, as one in a frozen band that is wider than the window, is edited
/// in what is in sight of it, where the text scrolls to its caret.
void TableDelegate::updateEditorGeometry(QWidget* editor, QStyleOptionViewItem const& option,
                                         QModelIndex const&) const {
    QRect const seen = editor->parentWidget()->rect();
    QRect place = option.rect;
    if (option.direction == Qt::RightToLeft && seen.contains(place.topRight()))
        place.setLeft(std::max(place.left(), seen.left()));
    else if (option.direction == Qt::LeftToRight && seen.contains(place.topLeft()))
        place.setRight(std::min(place.right(), seen.right()));
    editor->setGeometry(place);
}

/// The keys that end an edit. Escape keeps the text as well; there is no key that takes it back.
bool TableDelegate::eventFilter(QObject* watched, QEvent* event) {
    using Move = void (TableDelegate::*)();
    if (event->type() != QEvent::KeyPress)
        return CellDelegate::eventFilter(watched, event);
    auto const& key = static_cast<QKeyEvent const&>(*event);
    bool const plain = key.modifiers() == Qt::NoModifier;
    Move move = nullptr;
    if (key.key() == Qt::Key_Tab && plain)
        move = &TableDelegate::nextColumnWithColumnResetSignal;
    else if (key.key() == Qt::Key_Backtab)
        move = &TableDelegate::previousColumnWithColumnResetSignal;
    else if (key.key() == Qt::Key_Enter || (key.key() == Qt::Key_Return && plain))
        move = &TableDelegate::nextRowWithColumnResetSignal;
    else if (key.key() != Qt::Key_Escape)
        return CellDelegate::eventFilter(watched, event);
    emit stopEditingSignal();
    if (move != nullptr)
        emit(this->*move)();
    return true;
}
