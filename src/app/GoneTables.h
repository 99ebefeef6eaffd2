#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class NoticeLine;
class TableView;

/// Keeps the tables whose files other programs took away, whole and with their undo history, and offers in a line of
/// the window to open them again. The offer ends when the user dismisses the line. A file that goes after the user has
/// done something else in the window also ends it, but for tables with edits: those are nowhere else.
class GoneTables : public QObject {
    Q_OBJECT

public:
    /// `parent` holds the line, which is put into a layout by whoever asks for it.
    explicit GoneTables(QWidget* parent);
    ~GoneTables() override;

    NoticeLine* getLine() const { return line; }
    /// Takes over a table that stands in no window any more. `edited`: it held what its file never did.
    void keep(std::unique_ptr<TableView> table, bool edited);
    /// Gives the tables with edits back unasked. The others are offered as before.
    void giveBackEdited();
    /// Ends the offer, and the tables.
    void clear();

signals:
    /// The user wants this table back; it has no parent, and the window owns it from now on.
    void takenBackSignal(TableView* table);

protected:
    /// Looks out for what the user does.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Kept {
        std::unique_ptr<TableView> table;
        bool edited;
    };

    void giveBack();
    void emitAll(std::vector<Kept> wanted);
    void tell();

    NoticeLine* line;
    std::vector<Kept> kept;
    bool userActed = false; ///< since the last file went
};
