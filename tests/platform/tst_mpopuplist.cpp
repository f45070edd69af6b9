// SPDX-License-Identifier: MIT
#include "mpannableviewport.h"
#include "mpopuplist.h"
#include "mstyle.h"
#include "stage.h"

#include <memory>

class PopupListTest : public QObject {
    Q_OBJECT

    std::unique_ptr<Stage> m_stage;
    std::unique_ptr<QStringListModel> m_model;
    std::unique_ptr<MPopupList> m_list;
    QStringList m_picked;

    // Where a row is, as long as the list is not scrolled.
    QPointF centreOf(int row) const
    {
        const QRectF rows = m_list->centralWidget()->geometry();
        return {rows.center().x(), rows.top() + (row + 0.5) * MStyle::rowHeight};
    }

    static QStringList numbers(int count)
    {
        QStringList rows;
        for (int i = 0; i < count; ++i)
            rows.append(QString::number(i));
        return rows;
    }

private slots:
    void init()
    {
        m_stage = std::make_unique<Stage>();
        m_stage->window.resize(240, 407);
        m_model = std::make_unique<QStringListModel>(numbers(3));
        m_list = std::make_unique<MPopupList>();
        m_list->setTitle("Title"_s);
        m_list->setItemModel(m_model.get());
        m_picked.clear();
        connect(m_list.get(), &MPopupList::clicked, this,
                [this](const QModelIndex &index) { m_picked.append(index.data().toString()); });
        m_list->appear(&m_stage->window);
        QTRY_VERIFY(m_list->hasAppeared());
    }

    void cleanup()
    {
        m_list.reset();
        m_stage.reset();
    }

    void tapPicksARow_data() { addFingerKinds(); }
    void tapPicksARow()
    {
        QFETCH(Finger::Kind, kind);
        Finger finger(&m_stage->window, kind);
        const QImage before = m_stage->picture();
        QSignalSpy redrawn(m_stage->window.scene(), &QGraphicsScene::changed);
        finger.press(centreOf(1));
        QTRY_VERIFY(!redrawn.isEmpty());
        QVERIFY(m_stage->picture() != before);
        finger.move(centreOf(1) + QPointF(2, 2));
        finger.release();
        QCOMPARE(m_picked, QStringList{"1"_s});
        QVERIFY(!m_list->isOnDisplay());
    }

    void tapBesideItDismisses()
    {
        m_stage->finger.tap({240, 20});
        QVERIFY(!m_list->isOnDisplay());
        QVERIFY(m_picked.isEmpty());
    }

    void onlyATapOnOneRowOrBesideItCounts()
    {
        Finger &finger = m_stage->finger;
        finger.tap({240, m_list->centralWidget()->y() - 30});
        finger.drag(centreOf(1), centreOf(2));
        finger.drag({240, 20}, centreOf(1));
        finger.drag({240, m_list->centralWidget()->y() - 30}, {240, 20});
        // Between two rows, by less than a drag, and back.
        const QPointF edge = centreOf(1) + QPointF(0, MStyle::rowHeight / 2 - 1);
        finger.press(edge);
        finger.move(edge + QPointF(0, 4));
        finger.move(edge);
        finger.release();
        QVERIFY(m_list->isOnDisplay());
        QVERIFY(m_picked.isEmpty());
    }

    void keysPick_data()
    {
        const Table<QVector<int>, QStringList> row("keys", "picked");
        row("none chosen", {Qt::Key_Return}, {});
        row("first", {Qt::Key_Down, Qt::Key_Return}, {"0"_s});
        row("not beyond the last", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, {"2"_s});
        row("up from nowhere", {Qt::Key_Up, Qt::Key_Return}, {"2"_s});
        row("not before the first", {Qt::Key_Home, Qt::Key_Up, Qt::Key_Return}, {"0"_s});
        row("end", {Qt::Key_End, Qt::Key_Enter}, {"2"_s});
        row("escape", {Qt::Key_Down, Qt::Key_Escape}, {});
    }

    void keysPick()
    {
        QFETCH(QVector<int>, keys);
        for (int key : keys)
            QTest::keyClick(&m_stage->window, Qt::Key(key));
        QTEST(m_picked, "picked");
    }

    void changesOfTheModelShow()
    {
        const qreal height = m_list->centralWidget()->size().height();
        m_model->setStringList(numbers(5));
        QCoreApplication::processEvents();
        QCOMPARE(m_list->centralWidget()->size().height(), height + 2 * MStyle::rowHeight);
        const QImage before = m_stage->picture();
        m_model->setData(m_model->index(4, 0), "last"_s);
        QTRY_VERIFY(m_stage->picture() != before);
        m_stage->finger.tap(centreOf(4));
        QCOMPARE(m_picked, QStringList{"last"_s});
    }

    void currentRowThatIsRemovedIsNoLongerCurrent()
    {
        QTest::keyClick(&m_stage->window, Qt::Key_End);
        m_model->setStringList(numbers(1));
        QCOMPARE(m_list->currentIndex().row(), 0);
        m_model->setStringList({});
        QVERIFY(!m_list->currentIndex().isValid());
        QTest::keyClick(&m_stage->window, Qt::Key_Down);
        QTest::keyClick(&m_stage->window, Qt::Key_Return);
        QVERIFY(m_picked.isEmpty());
    }

    void longListScrolls_data() { addFingerKinds(); }
    void longListScrolls()
    {
        QFETCH(Finger::Kind, kind);
        m_model->setStringList(numbers(50));
        QCoreApplication::processEvents();
        const QRectF rows = m_list->centralWidget()->geometry();
        QVERIFY(QRectF(0, 0, 480, 814).contains(rows));
        auto *viewport = static_cast<MPannableViewport *>(m_list->centralWidget());
        Finger finger(&m_stage->window, kind);
        finger.drag({240, 600}, {240, 300}, 10);
        QVERIFY2(m_list->isOnDisplay() && m_picked.isEmpty(), "a drag must not pick");
        QTRY_VERIFY(viewport->position() > 100);
        QTest::keyClick(&m_stage->window, Qt::Key_End);
        QCOMPARE(viewport->position(), 50 * MStyle::rowHeight - rows.height());
    }

    void handlerMayShowTheSameListAgain()
    {
        connect(m_list.get(), &MPopupList::clicked, m_list.get(), [this] { m_list->appear(&m_stage->window); });
        for (int i = 0; i < 3; ++i) {
            m_stage->finger.tap(centreOf(i));
            QVERIFY2(m_list->isOnDisplay(), "must not be picked from or left before it can be seen");
            m_stage->finger.tap(centreOf(2));
            QTest::keyClick(&m_stage->window, Qt::Key_End);
            QTest::keyClick(&m_stage->window, Qt::Key_Return);
            QTRY_VERIFY(m_list->hasAppeared());
        }
        QCOMPARE(m_picked, numbers(3));
    }

    void handlerMayDestroyTheList()
    {
        connect(m_list.get(), &MPopupList::clicked, this, [this] { m_list.reset(); });
        m_stage->finger.tap(centreOf(0));
        QVERIFY(!m_list);
        m_stage->finger.tap({240, 400});
    }

    void handlerMayEmptyTheModel()
    {
        connect(m_list.get(), &MSceneWindow::disappeared, this, [this] { m_model->setStringList({}); });
        m_stage->finger.tap(centreOf(0));
        QVERIFY2(m_picked.isEmpty(), "a row that is gone must not be told of");
    }
};

QTEST_MAIN(PopupListTest)
#include "tst_mpopuplist.moc"
