#include "view/FirstSectionsModel.h"

#include <algorithm>

FirstSectionsModel::FirstSectionsModel(QAbstractItemModel* source, Qt::Orientation orientation, int most,
                                       QObject* parent)
    : QAbstractTableModel(parent), source(source), orientation(orientation), most(most) {
    follow();
    for (auto const signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved,
                              &QAbstractItemModel::columnsInserted, &QAbstractItemModel::columnsRemoved})
        connect(source, signal, this, &FirstSectionsModel::follow);
    connect(source, &QAbstractItemModel::modelReset, this, &FirstSectionsModel::follow);
    connect(source, &QAbstractItemModel::headerDataChanged, this, [this](Qt::Orientation changed, int first, int last) {
        if (changed == this->orientation && first < count)
            emit headerDataChanged(changed, first, std::min(last, count - 1));
    });
}

void FirstSectionsModel::setMost(int newMost) {
    most = newMost;
    follow();
}

int FirstSectionsModel::sourceCount() const {
    if (source.isNull())
        return 0;
    return orientation == Qt::Vertical ? source->rowCount() : source->columnCount();
}

QVariant FirstSectionsModel::headerData(int section, Qt::Orientation asked, int role) const {
    return source.isNull() ? QVariant() : source->headerData(section, asked, role);
}

void FirstSectionsModel::follow() {
    int const wanted = std::min(most, sourceCount());
    bool const rows = orientation == Qt::Vertical;
    if (wanted > count) {
        rows ? beginInsertRows({}, count, wanted - 1) : beginInsertColumns({}, count, wanted - 1);
        count = wanted;
        rows ? endInsertRows() : endInsertColumns();
    } else if (wanted < count) {
        rows ? beginRemoveRows({}, wanted, count - 1) : beginRemoveColumns({}, wanted, count - 1);
        count = wanted;
        rows ? endRemoveRows() : endRemoveColumns();
    }
}
