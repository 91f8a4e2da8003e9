#include "form_fixture.h"

#include "chapter_view.h"
#include "combo_box.h"
#include "list_box.h"
#include "message_box.h"
#include "popup_menu.h"
#include "tab_bar.h"
#include "ut_utils.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include <algorithm>

namespace window_test {

using test_support::ModuleFiles;
using test_support::plainBook;

namespace {

/// Runs of the page with the same format.
QList<QTextFragment> fragments(const QTextDocument& document)
{
    QList<QTextFragment> all;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto it = block.begin(); !it.atEnd(); ++it)
            all.append(it.fragment());
    return all;
}

struct Link
{
    QString href, text;
    int position = 0;
    int length = 0;
};

QList<Link> linksOf(const QTextDocument& document)
{
    QList<Link> links;
    int end = -1; // the runs of one anchor adjoin, those of two have a blank between them
    for (const QTextFragment& run : fragments(document)) {
        const QString href = run.charFormat().anchorHref();
        if (href.isEmpty())
            continue;
        if (links.isEmpty() || run.position() != end || links.last().href != href)
            links.append({href, {}, run.position(), 0});
        links.last().text += run.text();
        links.last().length += run.length();
        end = run.position() + run.length();
    }
    return links;
}

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
    QApplication::setDoubleClickInterval(0); // a list takes no click sooner than that after it has opened
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

QString FormFixture::place() const
{
    return QStringList{m_form->comboBook->currentText(), m_form->comboChapter->currentText(),
                       m_form->comboVerse->currentText()}
        .join(u' ');
}

QStringList FormFixture::page() const
{
    QStringList lines;
    for (QTextBlock block = m_form->textBrowser->document()->begin(); block.isValid(); block = block.next())
        lines.append(block.text());
    return lines;
}

QString FormFixture::red() const
{
    QString text;
    for (const QTextFragment& run : fragments(*m_form->textBrowser->document()))
        if (run.charFormat().foreground().color() == QColor(Qt::red))
            text += run.text();
    return text;
}

QStringList FormFixture::tabs() const
{
    const qt3::TabBar* bar = m_form->tabsText;
    QStringList labels;
    for (int i = 0; i < bar->count(); ++i)
        labels.append(i == bar->currentIndex() ? u'[' + bar->tabText(i) + u']' : bar->tabText(i));
    return labels;
}

QStringList FormFixture::checked() const
{
    QStringList titles;
    for (const QAction* item : m_form->menuTranslations->actions())
        if (item->isChecked())
            titles.append(item->text());
    return titles;
}

QStringList FormFixture::rows() const
{
    QStringList texts;
    const QAbstractItemModel* model = m_form->listSearchResults->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, 0).data().toString());
    return texts;
}

QStringList FormFixture::offered(const QComboBox* box) const
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

QStringList FormFixture::links() const
{
    QStringList texts;
    for (const Link& link : linksOf(*m_form->textBrowser->document()))
        texts.append(QString(link.text).replace(QChar::Nbsp, u' '));
    return texts;
}

bool FormFixture::isCentred(int line) const
{
    const qt3::ChapterView* view = m_form->textBrowser;
    const QTextBlock block = view->document()->findBlockByNumber(line);
    const auto top = int(view->document()->documentLayout()->blockBoundingRect(block).top());
    const QScrollBar* bar = view->verticalScrollBar();
    return bar->maximum() > 0 &&
           bar->value() == std::clamp(top - view->viewport()->height() / 2, 0, bar->maximum());
}

} // namespace window_test
