#pragma once

#include <QAbstractTableModel>
#include <QPointer>

/// What a band's header is given in the place of the table: as many of its rows (with Qt::Horizontal, columns) as the
/// band shows, with their labels. A header keeps a record of each section of its model, which for all rows of a large
/// table costs as much as the table's own header does. Has no cells.
class FirstSectionsModel : public QAbstractTableModel {
    Q_OBJECT

public:
    FirstSectionsModel(QAbstractItemModel* source, Qt::Orientation orientation, int most, QObject* parent);

    void setMost(int count);

    int rowCount(QModelIndex const& parent = {}) const override { return along(Qt::Vertical, parent); }
    int columnCount(QModelIndex const& parent = {}) const override { return along(Qt::Horizontal, parent); }
    QVariant data(QModelIndex const&, int) const override { return {}; }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int along(Qt::Orientation asked, QModelIndex const& parent) const {
        return asked == orientation && !parent.isValid() ? count : 0;
    }
    int sourceCount() const;
    void follow();

    QPointer<QAbstractItemModel> source;
    Qt::Orientation orientation;
    int most;
    int count = 0;
};
