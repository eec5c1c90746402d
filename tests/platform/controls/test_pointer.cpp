// The mouse, and a screen reader in its place.
#include "platform/controls/sample.h"

#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAccessible>
#include <QTest>
#include <QWidget>

using namespace platform;

class TestPointer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aClickNeedsPressAndReleaseOnTheControl()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.Label1.OnClick = [&] { ++clicks; };
        QTest::mouseRelease(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 0);
        QTest::mousePress(form.Label1.Widget(), Qt::LeftButton);
        QTest::mouseRelease(form.Label1.Widget(), Qt::LeftButton, {}, QPoint(-5, -5));
        QCOMPARE(clicks, 0);
        QTest::mouseClick(form.Label1.Widget(), Qt::RightButton);
        QCOMPARE(clicks, 0);
        QTest::mouseClick(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 1);
        form.Label1.SetEnabled(false);
        QTest::mouseClick(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 1);
    }

    void aScreenReaderPressesWhatTheMouseCanClick()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.Target.OnClick = [&] { ++clicks; };
        form.Label1.OnClick = [&] { ++clicks; };
        form.Label1.SetCaption(QStringLiteral("esci"));
        const QString press = QAccessibleActionInterface::pressAction();
        for (VisualControl *control : {static_cast<VisualControl *>(&form.Target),
                                       static_cast<VisualControl *>(&form.Label1)}) {
            QAccessibleInterface *found = QAccessible::queryAccessibleInterface(control->Widget());
            QCOMPARE(found->role(), QAccessible::Button);
            QVERIFY(found->actionInterface()->actionNames().contains(press));
            clicks = 0;
            found->actionInterface()->doAction(press);
            QCOMPARE(clicks, 0); // whoever asked has an answer first
            QTRY_COMPARE(clicks, 1);
            control->SetEnabled(false);
            QVERIFY(!found->actionInterface()->actionNames().contains(press));
            found->actionInterface()->doAction(press);
            QCoreApplication::processEvents();
            QCOMPARE(clicks, 1);
        }
        QCOMPARE(
            QAccessible::queryAccessibleInterface(form.Label1.Widget())->text(QAccessible::Name),
            QStringLiteral("esci"));
    }

    void aScreenReaderFindsAPictureAndATextWhereNothingCanBeClicked()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QAccessibleInterface *picture = QAccessible::queryAccessibleInterface(form.Target.Widget());
        QCOMPARE(picture->role(), QAccessible::Graphic);
        QVERIFY(!picture->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        QCOMPARE(QAccessible::queryAccessibleInterface(form.Label1.Widget())->role(),
                 QAccessible::StaticText);
    }

    void overADisabledControlThePointerIsOverTheWindow()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int overForm = 0;
        int overButton = 0;
        form.OnMouseMove = [&] { ++overForm; };
        form.Buttons.OnMouseMove = [&](int) { ++overButton; };
        form.Buttons(0).SetEnabled(false);
        QTest::mouseMove(form.Buttons(0).Widget());
        QCoreApplication::processEvents();
        QCOMPARE(overButton, 0);
        QVERIFY(overForm > 0);
        overForm = 0;
        QTest::mouseMove(form.Buttons(3).Widget());
        QCoreApplication::processEvents();
        QVERIFY(overButton > 0);
        QCOMPARE(overForm, 0);
    }
};

MORLENE_TEST(TestPointer)
#include "test_pointer.moc"
