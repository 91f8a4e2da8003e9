#include "form_fixture.h"

#include "chapter_view.h"
#include "combo_box.h"
#include "list_box.h"
#include "message_box.h"
#include "page_runs.h"
#include "popup_menu.h"
#include "tab_bar.h"
#include "ut_utils.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace window_test {

using test_support::ModuleFiles;
using test_support::plainBook;

namespace {

QRect characterRect(const QTextBrowser& view, int position)
{
    QTextCursor cursor(view.document());
    cursor.setPosition(position);
    const QRect before = view.cursorRect(cursor);
    cursor.setPosition(position + 1);
    const QRect after = view.cursorRect(cursor);
    return {before.topLeft(), QPoint(std::max(after.left(), before.left() + 1), before.bottom())};
}

} // namespace

QString loadingMessage(const QString& what)
{
    return QStringLiteral("Грешка при зареждане на модулите (\"") + what +
           QStringLiteral("\").\nВероятно инсталацията не е протекла успешно.");
}

ModuleFiles alphaModule(const std::string& title)
{
    return test_support::makeModule(title, {plainBook(0, "Битие", std::vector<unsigned int>(50, 31)),
                                            plainBook(7, "Рут", {22, 23, 18, 22}),
                                            plainBook(18, "Псалтир", {6, 12, 8, 9, 176})});
}

ModuleFiles betaModule(const std::string& title, const std::string& diff)
{
    return test_support::makeModule(
        title, {plainBook(18, "Псалми", {6, 12, 8}), plainBook(0, "Битие", {31, 31, 31})}, diff);
}

ModuleFiles moduleOfVerses(const std::vector<std::string>& verses)
{
    return test_support::makeModule("Стихове", {{0, "Битие", {verses}}});
}

bool inDialog(const std::function<void()>& act, const std::function<void(QWidget&)>& answer)
{
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible())
            return;
        came = true;
        watch.stop();
        answer(*dialog);
    });
    watch.start(0);
    act();
    return came;
}

FormFixture::FormFixture()
{
    QApplication::setDoubleClickInterval(0); // a list ignores clicks within this interval after opening
    ut::set_application_dirPath(m_folder.file("Читалня").c_str());
    qt3::MessageBox::setAnswer([this](QMessageBox& box) {
        QStringList labels;
        for (const QAbstractButton* button : box.buttons())
            labels.append(button->text().remove(u'&'));
        m_boxes.append({box.icon(), box.windowTitle(), box.text(), labels});
    });
}

FormFixture::~FormFixture()
{
    m_form.reset();
    qt3::MessageBox::setAnswer({});
}

void FormFixture::install(const std::string& folder, const ModuleFiles& files) const
{
    files.write(modulesPath() + "/" + folder);
}

void FormFixture::show() const
{
    m_form->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_form.get()));
    m_form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_form.get()));
}

void FormFixture::chooseInMenu(QMenu* menu, QAction* item) const
{
    QMenuBar* bar = m_form->menubar;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    QTRY_VERIFY(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
    QTRY_VERIFY(!menu->isVisible());
}

void FormFixture::chooseTranslation(int index) const
{
    QMenu* menu = m_form->menuTranslations;
    QVERIFY(index < menu->actions().size());
    chooseInMenu(menu, menu->actions().at(index));
}

void FormFixture::clickTab(int index) const
{
    QTest::mouseClick(m_form->tabsText, Qt::LeftButton, {}, m_form->tabsText->tabRect(index).center());
}

void FormFixture::clickHit(int row) const
{
    const qt3::ListBox* list = m_form->listSearchResults;
    const QRect rect = list->visualRect(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

void FormFixture::pick(qt3::ComboBox* box, int row) const
{
    box->showPopup();
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    const QModelIndex index = list->model()->index(row, 0);
    list->scrollTo(index);
    QTest::mouseMove(list->viewport(), list->visualRect(index).center());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(index).center());
    QTRY_VERIFY(!list->isVisible());
}

void FormFixture::clickLink(int n) const
{
    const qt3::ChapterView* view = m_form->textBrowser;
    const Link link = linksOf(*view->document()).value(n);
    QVERIFY(link.length > 0);
    QTextCursor cursor(view->document());
    cursor.setPosition(link.position);
    const int top = view->cursorRect(cursor).top() + view->verticalScrollBar()->value();
    view->verticalScrollBar()->setValue(top - view->viewport()->height() / 2);
    const QRect rect = characterRect(*view, link.position + link.length / 2);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, rect.center());
}

void FormFixture::type(const QString& text)
{
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key(letter.toUpper().unicode()),
                            QString(letter), {});
}

void FormFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow(),
                    key, modifiers);
}

void FormFixture::typeInto(qt3::ComboBox* box, const QString& text)
{
    box->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(box->hasFocus());
    box->lineEdit()->selectAll();
    press(Qt::Key_Delete);
    type(text);
}

} // namespace window_test
