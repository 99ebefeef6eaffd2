#include "app/files/SaveQuestions.h"

#include "core/DelimiterUtilities.h"
#include "model/FileDialect.h"
#include "model/TableModel.h"
#include "view/MsgBox.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLocale>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace {

QString tr(char const* text) {
    return QCoreApplication::translate("SaveQuestions", text);
}

struct Choice {
    QString label;
    QMessageBox::ButtonRole role;
};

/// A box to tick below a question.
struct Tick {
    QString label;
    bool on = false;
};

/// Shows the text with a button for each choice, the last of which leaves all as it is. The number of the one pressed;
/// `fallback` is the one that Enter presses.
int choose(SaveQuestions::Asker const& asker, QString const& text, QString const& path,
           std::vector<Choice> const& choices, std::size_t fallback, Tick* tick = nullptr) {
    MsgBox box(asker.parent);
    box.setTheme(asker.theme);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.nameFile(path);
    std::vector<QPushButton*> buttons;
    for (Choice const& choice : choices) {
        buttons.push_back(box.addButton(choice.label, choice.role));
    }
    box.setDefaultButton(buttons[fallback]);
    box.setEscapeButton(buttons.back());
    if (tick != nullptr) {
        box.setCheckBox(new QCheckBox(tick->label, &box));
    }
    box.conditionButtons();
    box.exec();
    if (tick != nullptr) {
        tick->on = box.checkBox()->isChecked();
    }
    auto const pressed = std::find(buttons.begin(), buttons.end(), box.clickedButton());
    return static_cast<int>(pressed == buttons.end() ? buttons.size() - 1 : std::size_t(pressed - buttons.begin()));
}

QString delimiterWords(QString const& delimiter) {
    return delimiter.isEmpty() ? tr("nothing") : Utilities::convertDelimiterFromActualToLongReadable(delimiter);
}

QString dialectWords(SaveDialect::Change const& change, QString const& delimiter, LineEndings const& lineEndings) {
    QString const ofCells = tr("cells separated by %1").arg(delimiterWords(delimiter));
    QString const ofLines = tr("lines ending with %1").arg(lineEndings.names());
    return change.delimiter && change.lineEnding ? tr("%1 and %2").arg(ofCells, ofLines)
                                                 : (change.delimiter ? ofCells : ofLines);
}

QString ofExtension(QString const& extension) {
    return extension.isEmpty() || extension == QLatin1String("(none)")
               ? tr("Do this for all files without an extension")
               : tr("Do this for all .%1 files").arg(extension);
}

} // namespace

SaveQuestions::PartAnswer SaveQuestions::aboutPartOfFile(Asker const& asker, QString const& path, qint64 bytes) {
    QString const text =
        tr("Only the first %1 of this file could be read.\n\nA save would put them in the place of the "
           "whole file.")
            .arg(QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat));
    return PartAnswer(choose(asker, text, path,
                             {{tr("Save &As"), QMessageBox::AcceptRole},
                              {tr("Save An&yway"), QMessageBox::DestructiveRole},
                              {tr("&Cancel"), QMessageBox::RejectRole}},
                             0));
}

SaveQuestions::DialectAnswer SaveQuestions::aboutFileDialect(Asker const& asker, TableModel const& model,
                                                             ExtensionData const& dialect,
                                                             SaveDialect::Change const& change) {
    FileDialect const& file = *model.getFileDialect();
    QString text = tr("This file has %1.\nAs set, it would be saved with %2.")
                       .arg(dialectWords(change, file.foundDelimiter, file.lineEndings),
                            dialectWords(change, dialect.saveDelimiter, LineEndings::of(dialect.lineEnding)));
    bool const keepsAll = SaveDialect::canKeep(model, change);
    if (!keepsAll) {
        text += tr("\nA save ends all lines alike, and none with CR alone.");
    }
    ExtensionData const kept = SaveDialect::asInFile(model, dialect, change);
    bool const keepsSome = kept.saveDelimiter != dialect.saveDelimiter || kept.lineEnding != dialect.lineEnding;
    std::vector<Choice> choices{{tr("Save as &Set"), QMessageBox::DestructiveRole},
                                {tr("&Cancel"), QMessageBox::RejectRole}};
    if (keepsSome) {
        QString const keep = keepsAll ? tr("&Keep as in the File") : tr("&Keep What Can Be Kept");
        choices.insert(choices.begin(), {keep, QMessageBox::AcceptRole});
    }
    Tick forAll{ofExtension(dialect.extension)};
    int const pressed = choose(asker, text, model.getFilepath(), choices, keepsSome ? 0 : 1, &forAll);
    return {DialectAnswer::Choice(keepsSome ? pressed : pressed + 1), forAll.on};
}

SaveQuestions::LinksAnswer SaveQuestions::aboutHardLinks(Asker const& asker, QString const& path, int names) {
    QString const text = tr("This file has %1 names; saving keeps only this one up to date.").arg(names);
    return LinksAnswer(choose(asker, text, path,
                              {{tr("&Save"), QMessageBox::AcceptRole},
                               {tr("Write in &Place"), QMessageBox::AcceptRole},
                               {tr("&Cancel"), QMessageBox::RejectRole}},
                              0));
}

QString SaveQuestions::sentenceAboutChangedCells(ChangedCells const& changed) {
    qint64 const count = changed.cells.count();
    QString const many = changed.goesOn ? tr("At least %L1 cells").arg(count) : tr("%L1 cells").arg(count);
    QString const which = count == 1 && !changed.goesOn ? tr("1 cell") : many;
    return changed.moves
               ? tr("%1 would not come back from the file as they are, and cells would stand in other places.")
                     .arg(which)
               : tr("%1 would not come back from the file as they are.").arg(which);
}

SaveQuestions::CellsAnswer SaveQuestions::aboutChangedCells(Asker const& asker, QString const& path,
                                                            ChangedCells const& changed) {
    QString const text =
        sentenceAboutChangedCells(changed) +
        tr("\n\nThey hold quotes, delimiters or line ends that its parsing standard or encoding has no "
           "way to write.");
    return CellsAnswer(choose(asker, text, path,
                              {{tr("Save &Anyway"), QMessageBox::DestructiveRole},
                               {tr("&Show Cells"), QMessageBox::ActionRole},
                               {tr("&Cancel"), QMessageBox::RejectRole}},
                              2));
}
