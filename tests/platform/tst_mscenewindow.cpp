// SPDX-License-Identifier: MIT
#include "mapplicationwindow.h"
#include "mscenewindow.h"
#include "testing.h"

#include <memory>

namespace {

/// Swallows every event sent to it: whatever has to reach it must not come as one.
class Swallower : public MSceneWindow {
public:
    bool event(QEvent *) override { return true; }
};

using Leave = void (MSceneWindow::*)();

} // namespace

class SceneWindowTest : public QObject {
    Q_OBJECT

private slots:
    void policySaysWhatBecomesOfIt()
    {
        const Leave disappear = &MSceneWindow::disappear;
        const Leave dismiss = &MSceneWindow::dismiss;
        for (const auto &[policy, leave, destroyed] : {std::tuple(MSceneWindow::KeepWhenDone, disappear, false),
                                                       {MSceneWindow::KeepWhenDone, dismiss, false},
                                                       {MSceneWindow::DestroyWhenDone, disappear, true},
                                                       {MSceneWindow::DestroyWhenDone, dismiss, true},
                                                       {MSceneWindow::DestroyWhenDismissed, disappear, false},
                                                       {MSceneWindow::DestroyWhenDismissed, dismiss, true}}) {
            MApplicationWindow window;
            QPointer<MSceneWindow> shown = new Swallower;
            QSignalSpy appeared(shown, &MSceneWindow::appeared);
            QSignalSpy disappeared(shown, &MSceneWindow::disappeared);
            shown->appear(&window, policy);
            QVERIFY(shown->isOnDisplay());
            QCOMPARE(appeared.count(), 1);

            (shown->*leave)();
            (shown->*leave)();
            QVERIFY2(shown, "must live until the event loop runs: its signals may still be on their way");
            QVERIFY(!shown->isVisible());
            QCOMPARE(disappeared.count(), 1);
            QCoreApplication::processEvents();
            QCOMPARE(shown.isNull(), destroyed);
            delete shown;
        }
    }

    void appearingAgainSavesItFromDestruction()
    {
        MApplicationWindow window;
        QPointer<MSceneWindow> shown = new Swallower;
        shown->appear(&window, MSceneWindow::DestroyWhenDone);
        shown->dismiss();
        shown->appear(&window, MSceneWindow::DestroyWhenDone);
        QCoreApplication::processEvents();
        QVERIFY(shown);
        shown->dismiss();
        QCoreApplication::processEvents();
        QVERIFY(!shown);
    }

    void appearsInTheWindowThatThereIsOrNotAtAll()
    {
        Swallower kept;
        kept.appear();
        QVERIFY(!kept.isOnDisplay());
        kept.dismiss();
        const QPointer<MSceneWindow> forgotten = new Swallower;
        forgotten->appear(nullptr, MSceneWindow::DestroyWhenDismissed);
        QTRY_VERIFY(!forgotten);
        MApplicationWindow window;
        kept.appear();
        QCOMPARE(kept.applicationWindow(), &window);
    }

    void windowLeavesWhatOthersOwn()
    {
        auto window = std::make_unique<MApplicationWindow>();
        QPointer<MSceneWindow> kept = new Swallower;
        QPointer<MSceneWindow> hidden = new Swallower;
        const QPointer<MSceneWindow> owned = new Swallower;
        kept->appear(window.get(), MSceneWindow::KeepWhenDone);
        hidden->appear(window.get(), MSceneWindow::KeepWhenDone);
        hidden->dismiss();
        owned->appear(window.get(), MSceneWindow::DestroyWhenDone);
        window.reset();
        QVERIFY(kept && hidden);
        QVERIFY(!kept->isOnDisplay());
        QVERIFY(!owned);
        delete kept;
        delete hidden;
    }

    void mayBeDestroyedFromItsOwnSignals()
    {
        for (const auto signal : {&MSceneWindow::appeared, &MSceneWindow::disappeared}) {
            MApplicationWindow window;
            QPointer<MSceneWindow> shown = new Swallower;
            connect(shown, signal, &window, [&shown] { delete shown; });
            shown->appear(&window, MSceneWindow::DestroyWhenDone);
            if (shown)
                shown->dismiss();
            QVERIFY(!shown);
            QCoreApplication::processEvents();
        }
    }
};

QTEST_MAIN(SceneWindowTest)
#include "tst_mscenewindow.moc"
