#pragma once

#include "core/ExtensionData.h"
#include "model/TableModel.h"

#include <QTableView>
#include <QUndoStack>

/// Shows one table. Owns the table's model and its undo stack. Cells are shown and not yet edited here.
class TableView : public QTableView {
    Q_OBJECT

public:
    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    TableModel* tableModel() const { return model; }
    QUndoStack* undoStack() { return &stack; }

    /// Reads the file into the table by the options set before. In the background form the view is hidden until
    /// onLoadFinished, and keys are dead.
    void loadCSV(QString const& path, bool background);
    void setReadOnly(bool on);
    bool isReadOnly() const { return readOnly; }
    bool isLoading() const { return loading; }
    /// The options by which the table is loaded and saved; the delimiters must be settled.
    void setExtensionData(ExtensionData const& data);
    /// The path of the table's file, empty for a table that has none.
    QString getFilepath() const;

public slots:
    void onStartProgressUpdate();
    void onLoadProgressUpdate(int done, int steps, int sizeMiB);
    void onLoadFinished();

signals:
    void startProgressUpdateSignal();
    void loadProgressUpdateSignal(int done, int steps, int sizeMiB);
    void loadFinishedSignal();
    void tableSizeChangedSignal(int rawRows, int rawCols, int modelRows, int modelCols);

private:
    TableModel* model;
    QUndoStack stack;
    bool loading = false;
    bool readOnly = false;
};
