#pragma once

#include "mdialog.h"

#include <QModelIndex>

class QAbstractItemModel;

/// A modal list to pick one row from.
///
/// A tap on a row emits clicked() and dismisses the list; a tap beside it or Escape dismisses it without. The arrow
/// keys move through the rows, Return picks. A long list scrolls.
class MPopupList : public MDialog {
    Q_OBJECT

public:
    MPopupList();
    ~MPopupList() override;

    /// Shows the rows of \a model (column 0 of the top level, Qt::DisplayRole), now and as it changes. Not owned; may
    /// be null, and may be destroyed before the list.
    void setItemModel(QAbstractItemModel *model);
    QAbstractItemModel *itemModel() const;

    /// The row that the keyboard is on; invalid when it is on none.
    QModelIndex currentIndex() const;

signals:
    /// A row was picked. The list is off the display by then, so another one may appear at once.
    void clicked(const QModelIndex &index);

protected:
    void entering() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    class Rows;

    void pick(int row);

    Rows *m_rows;
};
