#include "add_fixture.h"

#include "add_module.h"
#include "build.h"
#include "global_books.h"
#include "installed_modules.h"
#include "shown_text.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace add_test {

using namespace Kedrin;

AddFixture::AddFixture() { ::setenv("XDG_DATA_HOME", m_home.file("data").c_str(), 1); }

AddFixture::~AddFixture()
{
    m_window.reset();
    ::unsetenv("XDG_DATA_HOME");
}

Add::CAddWindow& AddFixture::openWith(const ModTool::ISword& sword)
{
    m_window = std::make_unique<Add::CAddWindow>(sword);
    m_window->show();
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the window does not become active");
    return *m_window;
}

void AddFixture::dropOn(QWidget& target, const QStringList& paths) const
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &drop);
}

void AddFixture::dropAndWait(const std::string& path) const
{
    drop({QString::fromStdString(path)});
    QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), longestWait);
}

void AddFixture::click(const char* button) const
{
    auto* found = part<QPushButton>(button);
    QVERIFY2(found->isVisible() && found->isEnabled(), button);
    QTest::mouseClick(found, Qt::LeftButton);
}

void AddFixture::addAndWait() const
{
    click("add");
    QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), longestWait);
}

void AddFixture::typeInto(const char* field, const QString& text) const
{
    auto* edit = part<QLineEdit>(field);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QCoreApplication::sendEvent(edit, &press);
    }
}

QStringList AddFixture::folders() const
{
    QStringList names;
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(ModTool::ownModulesFolder(), ignored), end; entry != end;
         ++entry)
        if (entry->path().filename() != "BibleStructure.txt")
            names.append(QString::fromStdString(entry->path().filename().string()));
    names.sort();
    return names;
}

std::string largeText()
{
    std::string text;
    for (const ModTool::GlobalBook& book : ModTool::globalBooks())
        for (std::size_t chapter = 0; chapter < book.verseCounts.size(); ++chapter)
            for (unsigned int verse = 1; verse <= book.verseCounts[chapter]; ++verse)
                text += std::string(book.osis) + '\t' + std::to_string(chapter + 1) + '\t' +
                        std::to_string(verse) + "\tВ начало бе Словото дума" + std::to_string(text.size()) +
                        '\n';
    return text;
}

void install(const AddFixture& fixture, const std::string& name)
{
    class : public ModTool::IProgress
    {
        void show(const std::string&, std::size_t, std::size_t) override {}
        void clear() override {}
    } none;
    ModTool::AddOptions options;
    options.name = name;
    const std::string source = fixture.file(name + ".vpl");
    ModTool::addModule(ModTool::readSource(source, {}, ModTool::CSword(), none), options, none);
}

} // namespace add_test
