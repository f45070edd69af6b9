// SPDX-License-Identifier: MIT
#pragma once

#include "mdialog.h"

#include <QModelIndex>

class MPannableViewport;
class QAbstractItemModel;

/// A modal list to pick one row from.
///
/// A tap on a row dismisses the list and emits clicked(); a tap beside it or Escape dismisses it without. The arrow
/// keys, Home and End move through the rows, Return picks. A list that is too long for the page scrolls, and a row
/// that is too long for the list is elided.
class MPopupList : public MDialog {
    Q_OBJECT

public:
    MPopupList();
    ~MPopupList() override;

    /// Shows the rows of @p model (column 0 of the top level, Qt::DisplayRole), now and as it changes. Not owned; may
    /// be null, and may be destroyed before the list.
    void setItemModel(QAbstractItemModel *model);
    QAbstractItemModel *itemModel() const;

    /// The row that the keyboard is on; invalid when it is on none.
    QModelIndex currentIndex() const;

    /// Where @p row is, in scene pixels; it may be panned out of sight.
    QRectF rowArea(int row) const;

    /// What a tap on @p row does; ignored if there is no such row.
    void pick(int row);

signals:
    /// A row was picked. The list is off the display by then, so that this one or another may appear at once.
    void clicked(const QModelIndex &index);

protected:
    void entering() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Rows;

    void moveTo(int row);

    MPannableViewport *m_viewport;
    Rows *m_rows;
};
