#include "mylayout.h"

#include <mlayout.h>

#include <QGraphicsScene>
#include <QGraphicsWidget>
#include <QtTest>

/// The layout policy that places by rectangles.
class tst_Layout : public QObject {
    Q_OBJECT

private slots:
    void itemsStayWhereTheyWerePut();
    void hintIsTheDifferenceOfTheMargins();
    void itemsWithoutPlaceAreIgnored();
};

void tst_Layout::itemsStayWhereTheyWerePut()
{
    const QVector<QRectF> places {{10, 10, 59, 33}, {0, 60, 480, 664}, {10, 10, 120, 40}};
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
    const auto verify = [&] {
        for (int i = 0; i < places.size(); ++i) {
            QCOMPARE(items.at(i)->geometry(), places.at(i));
            QCOMPARE(policy->itemAt(i), static_cast<QGraphicsLayoutItem *>(items.at(i)));
        }
    };
    verify();
    layout->setPolicy(policy);
    page->setLayout(layout);
    page->resize(300, 200);
    QCoreApplication::processEvents();
    policy->relayout();
    verify();
}

void tst_Layout::hintIsTheDifferenceOfTheMargins()
{
    MLayout layout;
    auto *policy = new MyLayoutPolicy(&layout);
    QGraphicsWidget item;
    policy->addItemAtGeometry(&item, QRectF(0, 0, 100, 100));
    layout.setContentsMargins(0, 0, 0, 0);
    QCOMPARE(policy->sizeHint(Qt::PreferredSize), QSizeF(0, 0));
    layout.setContentsMargins(2, 3, 10, 20);
    for (const auto which : {Qt::MinimumSize, Qt::PreferredSize, Qt::MaximumSize, Qt::MinimumDescent})
        QCOMPARE(policy->sizeHint(which, QSizeF(50, 50)), QSizeF(8, 17));
}

void tst_Layout::itemsWithoutPlaceAreIgnored()
{
    MLayout layout;
    auto *policy = new MyLayoutPolicy(&layout);
    QGraphicsWidget item;
    QGraphicsWidget other;
    policy->addItemAtGeometry(nullptr, QRectF(0, 0, 1, 1));
    policy->addItemAtGeometry(&item, QRectF(5, 5, 10, 10));
    policy->addItemAtGeometry(&other, QRectF(50, 50, 10, 10));
    policy->addItemAtGeometry(&item, QRectF(7, 7, 70, 70));
    QCOMPARE(policy->count(), 2);
    QCOMPARE(item.geometry(), QRectF(5, 5, 10, 10));
    QCOMPARE(other.geometry(), QRectF(50, 50, 10, 10));
}

QTEST_MAIN(tst_Layout)
#include "tst_layout.moc"
