#include "form_fixture.h"

#include "message_box.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>

using namespace window_test;

/// The focus when the window appears.
class StartFocusTest : public QObject
{
    Q_OBJECT

private slots:
    void focusIsOnThePage();
    void keysScrollThePageAtOnce_data();
    void keysScrollThePageAtOnce();
    void focusIsOnThePageAfterABox_data();
    void focusIsOnThePageAfterABox();
};

void StartFocusTest::focusIsOnThePage()
{
    FormFixture window;
    window.install("а", alphaModule());
    const BibleForm& form = window.open();
    QCOMPARE(QApplication::focusWidget(), form.textBrowser);
}

void StartFocusTest::keysScrollThePageAtOnce_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Space") << Qt::Key_Space;
    QTest::newRow("Page Down") << Qt::Key_PageDown;
    QTest::newRow("Down") << Qt::Key_Down;
}

void StartFocusTest::keysScrollThePageAtOnce()
{
    QFETCH(Qt::Key, key);
    FormFixture window;
    window.install("а", alphaModule());
    const BibleForm& form = window.open();
    FormFixture::press(key);
    QVERIFY(form.textBrowser->verticalScrollBar()->value() > 0);
    QVERIFY(form.groupSearch->isVisible());
    QVERIFY(form.viewSearchBar->isChecked());
    QVERIFY(window.takeBoxes().isEmpty());
}

void StartFocusTest::focusIsOnThePageAfterABox_data()
{
    QTest::addColumn<bool>("damaged");
    QTest::newRow("a damaged first translation") << true;
    QTest::newRow("no translation") << false;
}

void StartFocusTest::focusIsOnThePageAfterABox()
{
    QFETCH(bool, damaged);
    FormFixture window;
    if (damaged) {
        auto files = alphaModule();
        files.bytes.erase("Conc.bin");
        window.install("а", files);
    }
    qt3::MessageBox::setAnswer({}); // a real message box, which takes the focus and returns it
    QVERIFY(inDialog([&] { window.open(); }, [](QWidget& box) { box.close(); }));
    const BibleForm& form = window.form();
    QCOMPARE(QApplication::focusWidget(), form.textBrowser);
    FormFixture::press(Qt::Key_Space);
    QVERIFY(form.groupSearch->isVisible());
}

QTEST_MAIN(StartFocusTest)
#include "start_focus_test.moc"
