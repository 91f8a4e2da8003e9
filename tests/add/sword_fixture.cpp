#include "sword_fixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include <filesystem>

namespace add_test {

namespace fs = std::filesystem;

SwordFixture::SwordFixture() { offer("Made", "Description=Направена\nLang=bg\nInstallSize=4200000\n"); }

void SwordFixture::offer(const std::string& name, const std::string& configuration) const
{
    const build_test::MadeSword made;
    made.add(name, {{"Gen 1:1", "Бог"}, {"Gen 1:2", "рече"}}, configuration, "KJV", {"OSIS", true});
    fs::copy(made.path(), repository(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
}

void SwordFixture::configure(const std::string& lines) const
{
    const std::string folder = sword().path() + "/.sword/InstallMgr";
    fs::create_directories(folder);
    fs::copy_file(file("InstallMgr.conf", "[General]\n[Sources]\n" + lines), folder + "/InstallMgr.conf");
}

void SwordFixture::openPage()
{
    open().setCurrentIndex(1);
    QTRY_VERIFY_WITH_TIMEOUT(!textOf("swordNote").endsWith(QStringLiteral("...")), longestWait);
}

void SwordFixture::enterAddress(const std::string& address) const
{
    auto* choice = part<QComboBox>("swordSource");
    choice->setFocus();
    QTest::keyClick(choice, Qt::Key_End);
    QVERIFY(isSeen("swordAddress"));
    typeInto("swordAddress", QString::fromStdString(address));
    QTest::keyClick(part("swordAddress"), Qt::Key_Return);
}

void SwordFixture::listFolder() const
{
    enterAddress(repository());
    QTRY_VERIFY_WITH_TIMEOUT(!rows().isEmpty(), longestWait);
}

void SwordFixture::listAddress(const std::string& address) const
{
    enterAddress(address);
    click("networkYes");
    QTRY_VERIFY_WITH_TIMEOUT(!rows().isEmpty(), longestWait);
}

QStringList SwordFixture::rows() const
{
    const auto* list = part<QTreeWidget>("swordBibles");
    QStringList all;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list->columnCount(); ++column)
            cells.append(list->topLevelItem(row)->text(column));
        all.append(cells.join(QStringLiteral(" | ")));
    }
    return all;
}

bool SwordFixture::hasNothing() const
{
    return folders().isEmpty() && !fs::exists(home("data/kedrin/sword"));
}

} // namespace add_test
