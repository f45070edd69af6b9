// SPDX-License-Identifier: MIT
#include "mylayout.h"

#include "mlayout.h"

#include <QGraphicsScene>
#include <QGraphicsWidget>
#include <QtTest>

/// The layout policy that places by rectangles.
class tst_Layout : public QObject {
    Q_OBJECT

private slots:
    void itemsStayWhereTheyWerePut()
    {
        const QVector<QRectF> places{{10, 10, 59, 33}, {0, 60, 480, 664}, {10, 10, 120, 40}};
        QGraphicsScene scene;
        auto *page = new QGraphicsWidget;
        scene.addItem(page);
        auto *layout = new MLayout;
        auto *policy = new MyLayoutPolicy(layout);
        QVector<QGraphicsWidget *> items;
        for (const QRectF &place : places) {
            items << new QGraphicsWidget;
            policy->addItemAtGeometry(items.last(), place);
        }
        // Neither what is nothing nor what has its place already gets one.
        policy->addItemAtGeometry(nullptr, QRectF(0, 0, 1, 1));
        policy->addItemAtGeometry(items.first(), QRectF(7, 7, 70, 70));
        layout->setPolicy(policy);
        page->setLayout(layout);
        page->resize(300, 200);
        QCoreApplication::processEvents();
        policy->relayout();
        QCOMPARE(policy->count(), places.size());
        for (int i = 0; i < places.size(); ++i) {
            QCOMPARE(items.at(i)->geometry(), places.at(i));
            QCOMPARE(policy->itemAt(i), static_cast<QGraphicsLayoutItem *>(items.at(i)));
        }
    }

    void hintIsTheDifferenceOfTheMargins()
    {
        MLayout layout;
        auto *policy = new MyLayoutPolicy(&layout);
        QGraphicsWidget item;
        policy->addItemAtGeometry(&item, QRectF(0, 0, 100, 100));
        layout.setContentsMargins(2, 3, 10, 20);
        for (const auto which : {Qt::MinimumSize, Qt::PreferredSize, Qt::MaximumSize})
            QCOMPARE(policy->sizeHint(which, QSizeF(50, 50)), QSizeF(8, 17));
    }
};

QTEST_MAIN(tst_Layout)
#include "tst_layout.moc"
