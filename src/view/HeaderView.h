#pragma once

#include "core/Enumerations.h"
#include "view/ContextMenuEntries.h"
#include "view/TableType.h"

#include <QHeaderView>
#include <QPointer>

class FirstSectionsModel;

/// The labels of the rows or columns of a table. A press on a label selects, which is left to the table; a press near
/// the edge of one resizes, which is Qt's. Sections are Model, -1 behind the last one.
class HeaderView : public QHeaderView {
    Q_OBJECT

public:
    explicit HeaderView(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// Axis::Columns for a horizontal header.
    Axis getAxis() const { return orientation() == Qt::Horizontal ? Axis::Columns : Axis::Rows; }
    /// As of the view that the header belongs to.
    TableType getTableType() const { return tableType; }
    void setTableType(TableType type) { tableType = type; }
    /// A drag along the labels ends at this many sections; negative for no limit. Sections far behind the limit do not
    /// exist in this header.
    void setSectionLimit(int limit);
    /// The context menu offers the commands among `actions`.
    void setupContextMenus(CommandActions const& actions);
    /// As wide (with Qt::Horizontal, high) as another header; null for as wide as the labels ask.
    void setLeader(QHeaderView const* header) { leader = header; }
    /// A header of rows is wide enough for the label of the last row.
    QSize sizeHint() const override;
    /// The width in which a label shows in full, also while the table is sorted by its line.
    int labelWidth(int section) const;
    void setModel(QAbstractItemModel* model) override;
    /// Takes one of its own model only.
    void setSelectionModel(QItemSelectionModel* selection) override;
    /// Lays the labels out anew after their texts have changed.
    void relayOut();

signals:
    // Beside sectionClicked and sectionEntered, which are Qt's.
    void sectionCtrlClicked(int section);
    void sectionShiftClicked(int section);
    void sectionRightClicked(int section);
    /// Any release, wherever it is.
    void mouseReleased(int section);
    /// The release that ends a drag of sections.
    void arrayDragStopSignal(Axis axis, int section);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int along(QPointF const& point) const;
    bool isOnGrip(int section, int pixel) const;
    void beginSelecting(int section);
    int existingSections() const;
    void onCustomContextMenu(QPoint const& point);

    TableType tableType = TableType::Unset;
    int pressedSection = -1; ///< under the running press
    int sectionLimit = -1;
    QPointer<QHeaderView const> leader;
    FirstSectionsModel* firstSections = nullptr; ///< what a header with a limit has for a model
    bool arrayDragArmed = false;
    CommandActions commands;
};
