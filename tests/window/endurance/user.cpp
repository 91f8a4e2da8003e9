#include "user.h"

#include <QFontDialog>
#include <QLineEdit>
#include <QTest>

namespace endurance {

using window_test::FormFixture;

namespace {

constexpr int translationCount = 7;

QStringList simplified(QStringList lines)
{
    for (QString& line : lines)
        line = line.simplified();
    lines.removeAll(QString());
    return lines;
}

qt3::ComboBox* boxOf(const BibleForm& form, int n)
{
    return n == 0 ? form.comboBook : n == 1 ? form.comboChapter : form.comboVerse;
}

} // namespace

User::User(FormFixture& window, Model& model, test_support::Random& random)
    : m_window(window),
      m_model(model),
      m_random(random)
{
    for (const char* text : {"Бог",  "бог", "БОГ", "светлина", "земя", "зем",   "цар",  "ЦАР", "царя", "in",
                             "ight", "7",   "1",   "12",       "Рут",  "Матей", "няма", "в",   "о",    ""})
        m_texts.push_back(QString::fromUtf8(text));
}

QString User::act()
{
    m_model.forgetBoxes();
    showPage();
    if (m_model.tabCount() == 0)
        return m_random.percent(50) ? chooseInMenu() : chooseInMenuByKeys();
    static const std::vector<Action> actions = {&User::chooseInMenu,
                                                &User::chooseInMenuByKeys,
                                                &User::clickTab,
                                                &User::clickTab,
                                                &User::stepTab,
                                                &User::pickPlace,
                                                &User::pickPlace,
                                                &User::typePlace,
                                                &User::stepPlace,
                                                &User::typeNoPlace,
                                                &User::followLink,
                                                &User::toggleLinks,
                                                &User::search,
                                                &User::search,
                                                &User::searchFromTheList,
                                                &User::clickHit,
                                                &User::clickHit,
                                                &User::stepHit,
                                                &User::resize,
                                                &User::hideAndShow};
    switch (m_random.below(40)) {
    case 0:
        return changeFont();
    case 1:
        return about();
    default:
        return (this->*m_random.oneOf(actions))();
    }
}

Seen User::seen()
{
    Seen seen;
    seen.place =
        m_window.place() +
        QStringLiteral(" of %1 and %2").arg(form().comboChapter->count()).arg(form().comboVerse->count());
    seen.page = simplified(m_window.page());
    seen.red = m_window.red().simplified();
    seen.tabs = m_window.tabs();
    seen.checked = m_window.checked();
    seen.words = m_window.offered(form().comboSearchText);
    seen.rows = m_window.rows();
    for (const window_test::SeenBox& box : m_window.takeBoxes())
        seen.boxes.append(box.caption + u'\t' + box.text);
    return seen;
}

/// Takes the focus away from the boxes and the list, as a click on the page does.
void User::showPage()
{
    QCoreApplication::processEvents();
    if (QApplication::activeWindow() !=
        &form()) // without a display nobody activates it after a menu or dialog
        QApplication::setActiveWindow(&form());
    form().textBrowser->setFocus(Qt::MouseFocusReason);
}

QString User::chooseInMenu()
{
    const int translation = below(translationCount);
    m_window.chooseTranslation(translation);
    m_model.chooseInMenu(translation);
    return QStringLiteral("choose translation %1").arg(translation);
}

QString User::chooseInMenuByKeys()
{
    const int translation = below(translationCount);
    QMenu* menu = form().menuTranslations;
    form().menubar->setActiveAction(menu->menuAction());
    const QAction* item = menu->actions().at(translation);
    for (int steps = 0; menu->activeAction() != item && steps <= translationCount; ++steps)
        QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    m_model.chooseInMenu(translation);
    return QStringLiteral("choose translation %1 by keys").arg(translation);
}

QString User::clickTab()
{
    const int index = below(m_model.tabCount());
    m_window.clickTab(index);
    m_model.chooseTab(index);
    return QStringLiteral("click tab %1").arg(index);
}

QString User::stepTab()
{
    const bool right = m_random.percent(50);
    form().tabsText->setFocus(Qt::TabFocusReason);
    const int index = m_model.currentTab() + (right ? 1 : -1);
    if (m_random.percent(30)) {
        FormFixture::press(Qt::Key_Space);
        m_model.chooseTab(m_model.currentTab());
        return QStringLiteral("Space on the tab bar");
    }
    FormFixture::press(right ? Qt::Key_Right : Qt::Key_Left);
    if (index >= 0 && index < m_model.tabCount())
        m_model.chooseTab(index);
    return QStringLiteral("arrow key on the tab bar");
}

/// One of the boxes that fit into the tool bar.
int User::shownBox()
{
    int n = below(3);
    while (n > 0 && !boxOf(form(), n)->isVisible())
        --n;
    return n;
}

void User::tellPlace(int box, int item)
{
    if (box == 0)
        m_model.chooseBook(item);
    else if (box == 1)
        m_model.chooseChapter(item);
    else
        m_model.chooseVerse(item);
}

QString User::pickPlace()
{
    const int n = shownBox();
    qt3::ComboBox* box = boxOf(form(), n);
    const int item = below(box->count());
    m_window.pick(box, item);
    tellPlace(n, item);
    return QStringLiteral("pick %1 in box %2").arg(item).arg(n);
}

QString User::typePlace()
{
    const int n = shownBox();
    qt3::ComboBox* box = boxOf(form(), n);
    const int item = below(box->count());
    FormFixture::typeInto(box, box->itemText(item));
    FormFixture::press(Qt::Key_Return);
    tellPlace(n, item);
    return QStringLiteral("type item %1 into box %2").arg(item).arg(n);
}

QString User::stepPlace()
{
    const int n = shownBox();
    qt3::ComboBox* box = boxOf(form(), n);
    const int item = box->currentItem() + (m_random.percent(50) ? 1 : -1);
    box->setFocus(Qt::TabFocusReason);
    FormFixture::press(item > box->currentItem() ? Qt::Key_Down : Qt::Key_Up);
    if (item >= 0 && item < box->count())
        tellPlace(n, item);
    return QStringLiteral("arrow key in box %1").arg(n);
}

QString User::typeNoPlace()
{
    const int n = shownBox();
    FormFixture::typeInto(boxOf(form(), n), QStringLiteral("?99"));
    FormFixture::press(Qt::Key_Return);
    showPage();
    return QStringLiteral("type what is no item into box %1").arg(n);
}

QString User::followLink()
{
    const QStringList links = m_window.links();
    if (links.isEmpty())
        return toggleLinks();
    auto n = below(static_cast<int>(links.size()));
    while (links[n].contains(u' ')) // the middle of a link of several words may be the end of a line
        n = below(static_cast<int>(links.size()));
    m_window.clickLink(n);
    m_model.chooseLink(n);
    return QStringLiteral("click link %1").arg(n);
}

QString User::toggleLinks()
{
    FormFixture::press(Qt::Key_F8);
    m_model.toggleLinks();
    return QStringLiteral("F8");
}

QString User::changeFont()
{
    const int size = 8 + below(12);
    window_test::inDialog([&] { form().viewFont->trigger(); },
                          [&](QWidget& dialog) {
                              auto& fonts = dynamic_cast<QFontDialog&>(dialog);
                              QFont font = fonts.currentFont();
                              font.setPointSize(size);
                              fonts.setCurrentFont(font);
                              fonts.accept();
                          });
    return QStringLiteral("font of %1 points").arg(size);
}

QString User::resize()
{
    const QSize size(500 + below(500), 400 + below(500));
    form().resize(size);
    QCoreApplication::processEvents();
    return QStringLiteral("resize to %1x%2").arg(size.width()).arg(size.height());
}

QString User::hideAndShow()
{
    const Qt::Key key = m_random.percent(50) ? Qt::Key_F3 : Qt::Key_F4;
    FormFixture::press(key);
    FormFixture::press(key);
    FormFixture::press(Qt::Key_F5);
    return QStringLiteral("hide and show a panel, F5");
}

QString User::about()
{
    form().menubar->setActiveAction(form().menuHelp->menuAction());
    while (form().menuHelp->activeAction() != form().helpAbout)
        QTest::keyClick(form().menuHelp, Qt::Key_Down);
    QTest::keyClick(form().menuHelp, Qt::Key_Return);
    const QList<window_test::SeenBox> boxes = m_window.takeBoxes();
    if (boxes.size() != 1 || boxes.first().caption != QStringLiteral("За програмата"))
        m_model.showBox(QStringLiteral("За програмата"), QString());
    return QStringLiteral("about");
}

} // namespace endurance
