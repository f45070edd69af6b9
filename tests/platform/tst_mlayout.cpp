// SPDX-License-Identifier: MIT
#include "mabstractlayoutpolicy.h"
#include "mapplicationpage.h"
#include "mlayout.h"

#include <QGraphicsWidget>
#include <QTest>

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

class LayoutTest : public QObject {
    Q_OBJECT

private slots:
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

    void followsItsLatestPolicy()
    {
        QGraphicsWidget parent;
        auto *layout = new MLayout;
        new Column(layout);
        parent.setLayout(layout);
        auto *latest = new Column(layout);
        layout->activate();
        QVERIFY(latest->relayouts > 0);
        layout->setPolicy(nullptr);
        layout->activate();
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

QTEST_MAIN(LayoutTest)
#include "tst_mlayout.moc"
