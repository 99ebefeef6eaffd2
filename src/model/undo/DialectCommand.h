#pragma once

#include "core/Enumerations.h"
#include "model/TableModel.h"
#include "model/undo/TableUndoCommand.h"

#include <utility>

/// How a part of a file's dialect is read from a model, and set and announced to the view.
struct LineEndingDialect {
    static constexpr auto name = "SetLineEndingCommand";
    static constexpr auto flag = &TableModel::DialectOrigin::lineEndingSetByCommand;
    static LineEndingType get(TableModel const& model) { return model.getLineEnding(); }
    static void set(TableModel& model, LineEndingType type) {
        model.setLineEnding(type);
        model.setLineEndingForFileSaveCommand(type);
    }
};

struct EncodingDialect {
    static constexpr auto name = "SetEncodingCommand";
    static constexpr auto flag = &TableModel::DialectOrigin::encodingSetByCommand;
    static EncodingType get(TableModel const& model) { return model.getEncoding(); }
    static void set(TableModel& model, EncodingType type) {
        model.setEncoding(type);
        model.setEncodingForFileSaveCommand(type);
    }
};

struct ParsingStandardDialect {
    static constexpr auto name = "SetParsingStandardCommand";
    static constexpr auto flag = &TableModel::DialectOrigin::parsingStandardSetByCommand;
    static ParsingStandard get(TableModel const& model) { return model.getParsingStandard(); }
    static void set(TableModel& model, ParsingStandard standard) {
        model.setParsingStandard(standard);
        model.setParsingStandardForFileSaveCommand(standard);
    }
};

/// The delimiter of a save; what the file was read with stays.
struct DelimiterDialect {
    static constexpr auto name = "SetDelimiterCommand";
    static constexpr auto flag = &TableModel::DialectOrigin::delimiterSetByCommand;
    static QString get(TableModel const& model) { return model.getSaveDelimiter(); }
    static void set(TableModel& model, QString const& delimiter) {
        model.setDelimiter(model.getDelimiter(), delimiter);
        model.setDelimiterForFileSaveCommand(delimiter);
    }
};

/// Sets a part of the dialect in which a table is saved, and notes that a command has set it. Redo and undo are the
/// same: the stored value and the model's present one change places. The cells stay selected.
template <class Dialect>
class DialectCommand : public TableUndoCommand {
public:
    using Value = decltype(Dialect::get(std::declval<TableModel const&>()));

    DialectCommand(TableModel* model, RangeSet const& cells, Value value, bool changeSelection,
                   QUndoCommand* parent = nullptr)
        : TableUndoCommand(model, cells, changeSelection, parent), value(std::move(value)) {
        setText(QLatin1String(Dialect::name));
    }

    void undo() override {
        exchange();
        finish();
    }
    void redo() override {
        exchange();
        finish();
    }

protected:
    void exchange() {
        Value const present = Dialect::get(*model);
        std::swap(model->dialectOrigin().*Dialect::flag, setByCommand);
        Dialect::set(*model, value);
        value = present;
    }
    void finish() {
        selectNewCells();
        refreshView();
        model->saveAfterEdit();
    }

    Value value; ///< what the next exchange sets

private:
    bool setByCommand = true;
};

using SetLineEndingCommand = DialectCommand<LineEndingDialect>;
using SetParsingStandardCommand = DialectCommand<ParsingStandardDialect>;
using SetDelimiterCommand = DialectCommand<DelimiterDialect>;
