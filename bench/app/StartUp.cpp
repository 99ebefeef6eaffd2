// Starts, paints its first window and ends: either the program with the files given, or the barest window that Qt can
// show a table in. bench/start-up runs both side by side and compares the time of the whole processes.

#include "app/Application.h"
#include "app/MainWindow.h"

#include <QEvent>
#include <QStandardItemModel>
#include <QTableView>

#include <cstring>
#include <memory>

namespace {

/// Ends the program as soon as a table has painted itself.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && qobject_cast<QAbstractItemView*>(watched->parent()) != nullptr) {
            QMetaObject::invokeMethod(
                qApp, [] { std::_Exit(0); }, Qt::QueuedConnection);
        }
        return false;
    }
};

int showBareWindow(int argc, char** argv) {
    QApplication application(argc, argv);
    FirstPaint end;
    application.installEventFilter(&end);
    QStandardItemModel model(20, 10);
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int col = 0; col < model.columnCount(); ++col) {
            model.setItem(row, col, new QStandardItem(QString::number(row * col)));
        }
    }
    QTableView view;
    view.setModel(&model);
    view.resize(1000, 700);
    view.show();
    return QApplication::exec();
}

int showProgram(int argc, char** argv) {
    Application application(argc, argv, true, SingleApplication::PerUser, 1000);
    FirstPaint end;
    application.installEventFilter(&end);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    bool const bare = argc > 1 && std::strcmp(argv[1], "bare") == 0;
    return bare ? showBareWindow(argc, argv) : showProgram(argc, argv);
}
