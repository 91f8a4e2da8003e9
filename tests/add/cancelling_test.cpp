#include "add_fixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

#include <filesystem>

using namespace add_test;

namespace {

namespace fs = std::filesystem;

} // namespace

/// What is being read or added is ended before it is complete.
class CancellingTest : public QObject
{
    Q_OBJECT

private slots:
    void cancelledAddingLeavesNothing();
    void cancelledReadingShowsNothing();
    void laterTextIsShown();
    void closingInTheMiddleLeavesNothing();
};

void CancellingTest::cancelledAddingLeavesNothing()
{
    AddFixture fixture;
    install(fixture, "large");
    const auto before = fs::last_write_time(fixture.home("data/kedrin/modules/bibles/large/CompactText.bin"));
    fixture.open();
    fixture.dropAndWait(fixture.file("large.vpl", largeText()));
    fixture.part<QCheckBox>("replace")->setChecked(true);
    fixture.click("add");
    QVERIFY(fixture.isWorking());
    QCOMPARE(fixture.window().focusWidget()->objectName(), QStringLiteral("cancel"));
    fixture.drop({QString::fromStdString(fixture.file("b.vpl"))}); // not while another is added
    fixture.click("cancel");
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.isWorking(), longestWait);
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Cancelled; nothing was added."));
    QCOMPARE(fixture.folders(), QStringList(QStringLiteral("large")));
    QVERIFY(fs::last_write_time(fixture.home("data/kedrin/modules/bibles/large/CompactText.bin")) == before);
    QVERIFY(fixture.part("add")->isEnabled());
}

void CancellingTest::cancelledReadingShowsNothing()
{
    AddFixture fixture;
    fixture.open();
    fixture.drop({QString::fromStdString(fixture.file("large.vpl", largeText()))});
    QVERIFY(fixture.isWorking());
    fixture.click("cancel");
    QVERIFY(!fixture.part("cancel")->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(!fixture.isWorking(), longestWait);
    QCOMPARE(fixture.textOf("message"), QStringLiteral("Cancelled."));
    QVERIFY(!fixture.isSeen("add"));
}

void CancellingTest::laterTextIsShown()
{
    AddFixture fixture;
    fixture.open();
    fixture.drop({QString::fromStdString(fixture.file("large.vpl", largeText()))});
    fixture.drop({QString::fromStdString(fixture.file("later.vpl"))});
    QTRY_VERIFY_WITH_TIMEOUT(fixture.isSeen("add"), longestWait);
    QCOMPARE(fixture.part<QLineEdit>("title")->text(), QStringLiteral("later"));
    QCOMPARE(fixture.textOf("contents"), QStringLiteral("1 book, 1 chapter, 1 verse"));
}

void CancellingTest::closingInTheMiddleLeavesNothing()
{
    AddFixture fixture;
    fixture.open();
    fixture.dropAndWait(fixture.file("large.vpl", largeText()));
    fixture.click("add");
    fixture.window().close();
    fixture.closeWindow();
    QVERIFY(fixture.folders().isEmpty());
}

QTEST_MAIN(CancellingTest)
#include "cancelling_test.moc"
