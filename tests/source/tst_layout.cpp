// SPDX-License-Identifier: MIT
#include "mylayout.h"
#include "testing.h"

#include "mabstractlayoutpolicy.h"
#include "mapplicationpage.h"
#include "mlayout.h"

#include <QGraphicsScene>
#include <QGraphicsWidget>

namespace {

/// Puts the items under each other, 10 pixels high.
class Column : public MAbstractLayoutPolicy {
public:
    using MAbstractLayoutPolicy::MAbstractLayoutPolicy;

    int relayouts = 0;

    QSizeF sizeHint(Qt::SizeHint, const QSizeF &) const override { return {7, 10.0 * count()}; }

    void relayout() override
    {
        ++relayouts;
        for (int i = 0; i < count(); ++i)
            setItemGeometry(i, QRectF(0, 10 * i, layout()->geometry().width(), 10));
    }
};

} // namespace

/// The layout, a policy of the tests' own, and the one that places by rectangles.
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

    void itemsAddedBeforeAndAfterBecomeChildrenInOrder()
    {
        QGraphicsWidget parent;
        auto *layout = new MLayout;
        auto *policy = new Column(layout);
        auto *first = new QGraphicsWidget;
        auto *second = new QGraphicsWidget;
        auto *third = new QGraphicsWidget;
        policy->addItem(first);
        policy->addItem(second);
        parent.setLayout(layout);
        policy->addItem(third);
        QCOMPARE(parent.childItems(), (QList<QGraphicsItem *>{first, second, third}));

        parent.resize(100, 100);
        layout->activate();
        QCOMPARE(first->geometry(), QRectF(0, 0, 100, 10));
        QCOMPARE(third->geometry(), QRectF(0, 20, 100, 10));
        QCOMPARE(parent.preferredSize(), QSizeF(7, 30));

        policy->removeItem(second);
        layout->activate();
        QCOMPARE(second->geometry(), QRectF(0, 10, 100, 10));
        QCOMPARE(third->geometry(), QRectF(0, 10, 100, 10));

        const auto *latest = new Column(layout);
        layout->activate();
        QVERIFY(latest->relayouts > 0);
        layout->setPolicy(nullptr);
        layout->activate();
    }

    void itemsAndLayoutOutliveEachOther()
    {
        QGraphicsWidget stays;
        {
            MLayout layout;
            auto *policy = new Column(&layout);
            auto *doomed = new QGraphicsWidget;
            policy->addItem(doomed);
            policy->addItem(&stays);
            delete doomed;
            QCOMPARE(policy->count(), 1);
            QCOMPARE(policy->itemAt(0), &stays);
            QCOMPARE(layout.count(), 1);
        }
        QCOMPARE(stays.parentLayoutItem(), nullptr);
    }

    void neverBoundsItsWidgetFromAbove()
    {
        MApplicationPage page;
        auto *layout = new MLayout;
        new Column(layout);
        page.centralWidget()->setLayout(layout);
        page.resize(480, 814);
        QCOMPARE(page.centralWidget()->size(), QSizeF(480, 814));
    }
};

QTEST_MAIN(tst_Layout)
#include "tst_layout.moc"
