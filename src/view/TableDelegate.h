#pragma once

#include "view/CellDelegate.h"

#include <QColor>
#include <QFont>

/// Opens the editor over a cell. The model is never written here: the table listens to the texts.
class TableDelegate : public CellDelegate {
    Q_OBJECT

public:
    using CellDelegate::CellDelegate;

    QWidget* createEditor(QWidget* parent, QStyleOptionViewItem const& option, QModelIndex const& index) const override;
    void setEditorData(QWidget* editor, QModelIndex const& index) const override;
    /// Does nothing.
    void setModelData(QWidget* editor, QAbstractItemModel* model, QModelIndex const& index) const override;
    void updateEditorGeometry(QWidget* editor, QStyleOptionViewItem const& option,
                              QModelIndex const& index) const override;

    // The look of the editor.

    void setEditorBackgroundColor(QColor const& color) { editorBackgroundColor = color; }
    QColor getEditorBackgroundColor() const { return editorBackgroundColor; }
    void setFont(QFont const& newFont) { font = newFont; }
    void setTextSize(int pixels) { textSize = pixels; }
    void setTextColor(QColor const& color) { textColor = color; }
    QColor getTextColor() const { return textColor; }
    /// Cells of the first rows and columns are edited in bold where these are highlighted.
    void setNumHeaderRows(int count) { numHeaderRows = count; }
    void setNumHeaderCols(int count) { numHeaderCols = count; }
    void setHighlightHeaderRows(bool on) { highlightHeaderRows = on; }
    void setHighlightHeaderCols(bool on) { highlightHeaderCols = on; }

    // How the next editor opens.

    /// See QuickEdit.
    void setOverwriteOnEdit(bool on) { overwriteOnEdit = on; }
    /// The text that the editor is opened with is not announced.
    void setSuppressTextEdited(bool on) { suppressTextEdited = on; }
    /// The next editor begins without the cell's text.
    void setStartEmpty(bool on) { startEmpty = on; }

signals:
    void editorCreatedSignal(QWidget* editor) const;
    void textEditedSignal(QString text) const;
    void nextColumnWithColumnResetSignal();
    void previousColumnWithColumnResetSignal();
    void nextRowWithColumnResetSignal();
    void stopEditingSignal();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isHighlightedHeader(QModelIndex const& index) const;

    bool overwriteOnEdit = true;
    bool suppressTextEdited = false;
    mutable bool startEmpty = false; ///< used up by the editor that it is meant for
    QColor editorBackgroundColor = Qt::white;
    QColor textColor = Qt::black;
    QFont font;
    int textSize = 12; ///< pixels
    int numHeaderRows = 0;
    int numHeaderCols = 0;
    bool highlightHeaderRows = false;
    bool highlightHeaderCols = false;
};
