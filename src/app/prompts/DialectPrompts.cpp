#include "app/prompts/DialectPrompts.h"

#include "core/DelimiterUtilities.h"
#include "core/DialectUtilities.h"
#include "core/EncodingUtilities.h"
#include "model/undo/SetEncodingCommand.h"
#include "view/TableView.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>

#include <array>
#include <utility>

namespace {

using Finish = std::function<void(Dialect const& dialect)>;

QString tr(char const* text) {
    return QCoreApplication::translate("Prompts", text);
}

/// How one part of a dialect is asked for. `path` is the file to look into for what the answer leaves open; without one
/// there is nothing to look into.
struct PartQuestion {
    char const* title;
    QStringList (*options)(QString const& path);
    char const* complaint;
    bool (*isGood)(QString const& answer);
    void (*take)(Dialect& dialect, QString const& answer, QString const& path);
    QString (*present)(Dialect const& dialect); ///< the answer that changes nothing
};

QStringList lineEndingNames(QString const&) {
    QStringList names;
    for (LineEndingType const type : {LineEndingType::Windows, LineEndingType::Unix, LineEndingType::RecordSeparator})
        names << Utilities::convertLineEndingTypeToLongString(type);
    return names;
}

QStringList parsingStandardNames(QString const&) {
    QStringList names;
    for (int i = 0; i < static_cast<int>(ParsingStandard::Invalid); ++i)
        names << Utilities::convertParsingStandardToString(static_cast<ParsingStandard>(i));
    return names;
}

void takeDelimiter(Dialect& dialect, QString const& answer, QString const& path) {
    if (answer.compare(QLatin1String("(auto)"), Qt::CaseInsensitive) == 0)
        dialect.delimiter = Utilities::getDelimiterFromAutoDetect(path);
    else
        Utilities::convertDelimiterFromShortReadableToActual(dialect.delimiter, answer);
}

// Indexed by DialectPart.
constexpr std::array<PartQuestion, 4> Questions = {{
    {QT_TRANSLATE_NOOP("Prompts", "Delimiter:"),
     [](QString const& path) { return Utilities::getDelimiterOptions(!path.isEmpty()); },
     QT_TRANSLATE_NOOP("Prompts", "The delimiter can be one or more characters.\n"
                                  "Special words: tab, space, Unit Separator, (none)"),
     [](QString const& answer) { return Utilities::delimiterValid(answer); }, takeDelimiter,
     [](Dialect const& dialect) { return Utilities::convertDelimiterFromActualToShortReadable(dialect.delimiter); }},
    {QT_TRANSLATE_NOOP("Prompts", "Line Ending:"), lineEndingNames,
     QT_TRANSLATE_NOOP("Prompts", "Must be a line ending of the list."),
     [](QString const& answer) { return Utilities::lineEndingValid(answer); },
     [](Dialect& dialect, QString const& answer, QString const&) {
         dialect.lineEnding = Utilities::convertLineEndingStringToType(answer);
     },
     [](Dialect const& dialect) { return Utilities::convertLineEndingTypeToLongString(dialect.lineEnding); }},
    {QT_TRANSLATE_NOOP("Prompts", "Encoding:"), [](QString const&) { return Utilities::getEncodingStringList(); },
     QT_TRANSLATE_NOOP("Prompts", "Must be an encoding of the list."),
     [](QString const& answer) { return Utilities::encodingValid(answer); },
     [](Dialect& dialect, QString const& answer, QString const& path) {
         dialect.encoding = Utilities::guessEncodingFromFile(Utilities::convertEncodingStringToType(answer), path);
     },
     [](Dialect const& dialect) { return Utilities::convertEncodingTypeToString(dialect.encoding); }},
    {QT_TRANSLATE_NOOP("Prompts", "Parsing Standard:"), parsingStandardNames,
     QT_TRANSLATE_NOOP("Prompts", "Must be a parsing standard of the list."),
     [](QString const& answer) { return Utilities::parsingStandardValid(answer); },
     [](Dialect& dialect, QString const& answer, QString const&) {
         dialect.parsingStandard = Utilities::convertParsingStringToStandard(answer);
     },
     [](Dialect const& dialect) { return Utilities::convertParsingStandardToString(dialect.parsingStandard); }},
}};

PromptStep askForParts(std::vector<DialectPart> parts, Dialect const& dialect, QString const& path,
                       Finish const& finish) {
    PartQuestion const& question = Questions[static_cast<std::size_t>(parts.front())];
    parts.erase(parts.begin());
    PromptStep step;
    step.title = tr(question.title);
    step.selected = question.present(dialect);
    QStringList options = question.options(path);
    if (&question == &Questions[static_cast<std::size_t>(DialectPart::Delimiter)] && !options.contains(step.selected))
        options << step.selected;
    for (QString const& option : options) {
        step.options.emplace_back(option);
        step.options.back().valuePill = Utilities::getDelimiterName(option);
    }
    step.complaint = [&question](QString const& answer) {
        return question.isGood(answer) ? QString() : tr(question.complaint);
    };
    step.carryOut = [&question, parts, dialect, path, finish](QString const& answer, PromptAsker& asker) {
        Dialect changed = dialect;
        question.take(changed, answer, path);
        if (parts.empty())
            finish(changed);
        else
            asker.ask(askForParts(parts, changed, path, finish));
    };
    return step;
}

template <class Command, class Value>
void addChange(std::vector<QUndoCommand*>& changes, TableModel& model, Value const& present, Value const& wanted) {
    if (present != wanted)
        changes.push_back(new Command(&model, model.getSelectedSet(), wanted, true));
}

void setForSave(TableView& table, Dialect const& wanted) {
    Dialect const present = Dialect::ofSave(table);
    TableModel& model = *table.tableModel();
    std::vector<QUndoCommand*> changes;
    addChange<SetDelimiterCommand>(changes, model, present.delimiter, wanted.delimiter);
    addChange<SetLineEndingCommand>(changes, model, present.lineEnding, wanted.lineEnding);
    addChange<SetEncodingCommand>(changes, model, present.encoding, wanted.encoding);
    addChange<SetParsingStandardCommand>(changes, model, present.parsingStandard, wanted.parsingStandard);
    table.pushUndoCommands(QStringLiteral("Set Parameters for File Save"), changes);
}

} // namespace

Dialect Dialect::ofLoad(TableView const& table) {
    TableModel const& model = *table.tableModel();
    return {model.getDelimiter(), model.getLineEnding(), model.getEncoding(), model.getParsingStandard()};
}

Dialect Dialect::ofSave(TableView const& table) {
    Dialect dialect = ofLoad(table);
    dialect.delimiter = table.tableModel()->getSaveDelimiter();
    return dialect;
}

PromptStep Prompts::reloadDialect(std::vector<DialectPart> const& parts, TableView* table, Finish const& reload) {
    return askForParts(parts, Dialect::ofLoad(*table), table->getFilepath(), reload);
}

PromptStep Prompts::saveDialect(std::vector<DialectPart> const& parts, TableView* table,
                                std::function<bool(EncodingType encoding)> const& mayEncode) {
    return askForParts(parts, Dialect::ofSave(*table), QString(),
                       [alive = QPointer<TableView>(table), mayEncode](Dialect const& wanted) {
                           if (!alive.isNull() && mayEncode(wanted.encoding) && !alive.isNull())
                               setForSave(*alive, wanted);
                       });
}

PromptStep Prompts::listCharacterEncodings() {
    PromptStep step;
    step.title = tr("Character Encodings:");
    step.description = tr("Select an encoding to copy its name to the clipboard.");
    for (QString const& name : Utilities::getEncodingStringList())
        step.options.emplace_back(name);
    step.carryOut = [](QString const& answer, PromptAsker&) { QGuiApplication::clipboard()->setText(answer); };
    return step;
}
