#include "form_fixture.h"

#include "message_box.h"

#include <QCoreApplication>
#include <QDialog>
#include <QMetaMethod>
#include <QTest>
#include <QTimer>
#include <QWhatsThis>

using namespace window_test;

namespace {

/// The status with which the event loop ends without user actions; 99 if it does not end.
int endingStatus()
{
    QObject thisRun;
    QTimer::singleShot(50, &thisRun, [] { QCoreApplication::exit(99); });
    return QCoreApplication::exec();
}

/// Whether a message box of this form is open.
bool boxWaits(BibleForm& form)
{
    qt3::MessageBox::setAnswer({});
    bool waited = false;
    inDialog([&] { form.helpAbout_activated(); },
             [&](QWidget& box) {
                 QTest::qWait(30); // events that would close it have been processed
                 waited = box.isVisible();
                 box.close();
             });
    return waited;
}

/// One call of a slot for each possible value of its parameter.
void callSlot(BibleForm& form, const QMetaMethod& slot)
{
    if (slot.parameterCount() == 2)
        QVERIFY(slot.invoke(&form, Q_ARG(QString, QStringLiteral("gotoChapter")),
                            Q_ARG(QString, QStringLiteral("1"))));
    else if (slot.parameterCount() == 0)
        QVERIFY(slot.invoke(&form));
    else if (slot.parameterType(0) == QMetaType::Bool)
        QVERIFY(slot.invoke(&form, Q_ARG(bool, false)) && slot.invoke(&form, Q_ARG(bool, true)));
    else if (slot.parameterType(0) == QMetaType::QString)
        QVERIFY(slot.invoke(&form, Q_ARG(QString, QStringLiteral("дума"))));
    else
        for (const int number : {0, 1, -1, 1000000})
            QVERIFY(slot.invoke(&form, Q_ARG(int, number)));
}

} // namespace

/// A form that found no modules: what still works and what does not.
class FailedStartTest : public QObject
{
    Q_OBJECT

private slots:
    void laterFormIsNotEnded();
    void laterBoxesWaitForTheirAnswer();
    void boxOfTheFailedFormWaitsForItsAnswer();
    void programEndsWhenItsLoopRunsLater();
    void noSlotCrashes_data();
    void noSlotCrashes();
};

void FailedStartTest::laterFormIsNotEnded()
{
    FormFixture window;
    {
        const BibleForm failed;
    }
    QCOMPARE(window.takeBoxes().size(), 1);
    window.install("а", alphaModule());
    const BibleForm good;
    QCOMPARE(endingStatus(), 99);
}

void FailedStartTest::laterBoxesWaitForTheirAnswer()
{
    FormFixture window;
    window.open();
    QTest::qWait(30); // events are processed, but no loop runs that could be ended
    window.closeForm();
    window.install("а", alphaModule());
    QVERIFY(boxWaits(window.open()));
    QCOMPARE(endingStatus(), 99);
}

void FailedStartTest::boxOfTheFailedFormWaitsForItsAnswer()
{
    FormFixture window;
    QVERIFY(boxWaits(window.open()));
    QCOMPARE(endingStatus(), -1);
}

void FailedStartTest::programEndsWhenItsLoopRunsLater()
{
    FormFixture window;
    window.open();
    QTest::qWait(30);
    QCOMPARE(endingStatus(), -1);
    QCOMPARE(endingStatus(), 99); // only one request
}

void FailedStartTest::noSlotCrashes_data()
{
    QTest::addColumn<int>("index");
    for (int i = BibleForm::staticMetaObject.methodOffset(); i < BibleForm::staticMetaObject.methodCount();
         ++i)
        QTest::newRow(BibleForm::staticMetaObject.method(i).methodSignature().constData()) << i;
}

void FailedStartTest::noSlotCrashes()
{
    QFETCH(int, index);
    FormFixture window;
    BibleForm& form = window.open();
    window.takeBoxes();
    inDialog([&] { callSlot(form, BibleForm::staticMetaObject.method(index)); },
             [](QWidget& dialog) { dialog.close(); });
    if (QWhatsThis::inWhatsThisMode())
        QWhatsThis::leaveWhatsThisMode();
    QCOMPARE(window.tabs(), QStringList());
    QCOMPARE(window.page(), QStringList{QString()});
}

QTEST_MAIN(FailedStartTest)
#include "failed_start_test.moc"
