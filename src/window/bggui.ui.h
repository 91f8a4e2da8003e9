// The bodies of the form's slots, in the order of their declaration; part of bggui.cpp. The private functions
// that they call are in bggui_steps.cpp.

#include "about_texts.h"
#include "message_box.h"
#include "text.h"

#include <QApplication>
#include <QFontDialog>
#include <QMessageBox>
#include <QWhatsThis>

#include <stdexcept>

using namespace Kedrin::Tolvo;

namespace {

QString loadingMessage(const std::exception& ex)
{
    return QStringLiteral("Грешка при зареждане на модулите (\"%1\").\n"
                          "Вероятно инсталацията не е протекла успешно.")
        .arg(qt3::fromMessage(ex.what()));
}

QStringList numbersTo(int count)
{
    QStringList numbers;
    for (int i = 1; i <= count; ++i)
        numbers.append(QString::number(i));
    return numbers;
}

/// Offers 1 .. `count` in a box and keeps its current item, clamped to the last of them.
/// @returns the item, -1 when there is none
int offerNumbers(qt3::ComboBox* box, int count)
{
    const int kept = box->currentItem();
    const int item = kept < count ? kept : count - 1;
    box->setItems(numbersTo(count));
    box->setCurrentItem(item);
    return item;
}

} // namespace

void BibleForm::init()
{
    const std::string modulesPath = ut::get_application_dirPath() + "/modules/bibles";
    try {
        loadModules(modulesPath);
        menuTranslations_activated(0);
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Грешка"), loadingMessage(ex));
        QMetaObject::invokeMethod(
            this, [this] { endWithTheEventLoop(); }, Qt::QueuedConnection);
    }
    comboBook_activated(0);
}

void BibleForm::destroy()
{
    try {
        m_hits->clear();
        comboSearchText->setListModel(nullptr);
        delete tabsText;
        tabsText = nullptr;
        delete m_bibleModules;
        m_bibleModules = nullptr;
        m_currentBible = nullptr;
        for (const CBible* bible : m_bibles)
            delete bible;
        m_bibles.clear();
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Изход"), qt3::fromMessage(ex.what()),
                                  QStringLiteral("OK"));
    }
}

void BibleForm::menuTranslations_activated(int bibleIndex)
{
    if (tabsText == nullptr)
        return; // the start has failed
    try {
        if (menuTranslations->isItemChecked(bibleIndex))
            closeTranslation(bibleIndex);
        else
            openTranslation(bibleIndex);
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Грешка"), loadingMessage(ex));
    }
}

void BibleForm::tabsText_selected(int tabID)
{
    if (tabsText == nullptr)
        return; // the start has failed
    try {
        m_currentBibleI = static_cast<unsigned int>(tabsText->indexOf(tabID));
        m_currentBible = m_bibles.at(m_currentBibleI);
        offerWordsAndBooks();
        showPlace();
        if (checkRedoSearch->isChecked() && !m_currentSearchText.isEmpty()) {
            comboSearchText->setCurrentText(m_currentSearchText);
            btnSearch_pressed();
        }
    } catch (const std::exception& ex) {
        // the sentence is the label of the button, the message is the text
        qt3::MessageBox::critical(this, QStringLiteral("Грешка"), qt3::fromMessage(ex.what()),
                                  QStringLiteral("Грешка при превключване на модулите."));
    }
}

void BibleForm::comboBook_activated(int bookN)
{
    if (m_currentBible == nullptr)
        return restoreBoxes();
    const auto bookID = static_cast<unsigned int>(bookN);
    const int chapterN = offerNumbers(comboChapter, static_cast<int>(m_currentBible->chaptersCount(bookID)));
    if (chapterN >= 0)
        comboChapter_activated(chapterN);
    else
        goToRef(CRef(bookID, 0, 0)); // a damaged module; says that there is no such chapter
}

void BibleForm::comboChapter_activated(int chapterN)
{
    if (m_currentBible == nullptr)
        return restoreBoxes();
    const auto bookN = static_cast<unsigned int>(comboBook->currentItem());
    const auto verses =
        static_cast<int>(m_currentBible->versesCount(bookN, static_cast<unsigned int>(chapterN)));
    comboVerse_activated(offerNumbers(comboVerse, verses));
}

void BibleForm::comboVerse_activated(int verseN)
{
    if (m_currentBible == nullptr)
        return restoreBoxes();
    goToRef(CRef(static_cast<unsigned int>(comboBook->currentItem()),
                 static_cast<unsigned int>(comboChapter->currentItem()), static_cast<unsigned int>(verseN)));
}

void BibleForm::comboSearchText_activated(const QString&) { btnSearch_pressed(); }

void BibleForm::checkPartialWord_toggled(bool on) { checkCaseSensitive->setEnabled(on); }

void BibleForm::btnSearch_pressed()
{
    if (m_currentBible != nullptr) {
        m_currentSearchText = comboSearchText->currentText();
        if (m_currentSearchText.isEmpty())
            qt3::MessageBox::information(this, QStringLiteral("Напомняне"),
                                         QStringLiteral("Моля, въведете текст за търсене"),
                                         QStringLiteral("OK"));
        else
            listHits();
    }
    btnSearch->setDown(false); // a message box receives the release of this press
}

void BibleForm::listSearchResults_highlighted(int i)
{
    const auto hit = static_cast<std::size_t>(i);
    if (hit < m_searchResults.size())
        goToRef(m_searchResults[hit]);
}

void BibleForm::fileExit_activated() { close(); }

void BibleForm::helpAbout_activated()
{
    qt3::MessageBox::about(
        this, QStringLiteral("За програмата"),
        QStringLiteral("Kedrin за Linux, %1\n"
                       "Автор: %2, 2005\n"
                       "Email: %3\n"
                       "(Пишете за открити бъгове, препоръки и други въпроси свързани с продукта)\n"
                       "\n"
                       "Със съдействието на %4")
            .arg(QString::fromUtf8(aboutVersion), QString::fromUtf8(aboutAuthor),
                 QString::fromUtf8(aboutContact), QString::fromUtf8(aboutPartner)));
}

void BibleForm::helpAboutQt_activated()
{
    QMessageBox::aboutQt(this, QStringLiteral("Kedrin за Linux ") + QString::fromUtf8(aboutVersion));
}

void BibleForm::helpWhatsThis_activated() { QWhatsThis::enterWhatsThisMode(); }

void BibleForm::_3_betha_demoAction_activated()
{
    if (m_currentBible == nullptr)
        return;
    try {
        qt3::MessageBox::information(this, QStringLiteral("0.3 Betha Demo String"),
                                     qt3::from1251(m_currentBible->demoString()), QStringLiteral("OK"));
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Demo Error"), qt3::fromMessage(ex.what()),
                                  QStringLiteral("OK"));
    }
}

void BibleForm::btnHideSearch_clicked() { viewSearchBar->toggle(); }

void BibleForm::viewLocationToolbar_toggled(bool on) { toolbarLocation->setVisible(on); }

void BibleForm::viewSearchBar_toggled(bool on)
{
    groupSearch->setVisible(on);
    if (on)
        comboSearchText->setFocus(Qt::ShortcutFocusReason);
}

// As with every shortcut for a text field, its content is selected, so that typing replaces it.
void BibleForm::gotoAction_activated() { comboBook->setFocus(Qt::ShortcutFocusReason); }

void BibleForm::viewFont_activated()
{
    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, QApplication::font(), this);
    if (!accepted)
        return;
    QApplication::setFont(chosen);
    textBrowser->setFont(QFont()); // Ctrl and the wheel may have given it a font of its own
    setFont(chosen);
    repaint();
}

void BibleForm::textBrowser_anchorClicked(const QString& name, const QString& href)
{
    if (name == QLatin1String("gotoChapter"))
        goToRef(CRef(static_cast<unsigned int>(comboBook->currentItem()), href.toUInt(nullptr, 10), 0));
}

void BibleForm::viewChapterHyperLinks_toggled(bool) { goToRef(m_currentRef); }

void BibleForm::comboSearchText_textChanged(const QString&) {} // typing alone never starts a search

void BibleForm::goToRef(const CRef& _ref)
{
    static bool lock = false; // set while rendering: the slots of the boxes call this function again
    if (m_currentBible == nullptr || lock)
        return;
    lock = true;
    try {
        const CRef ref = _ref.isGlobal() ? m_currentBible->toLocal(_ref) : _ref;
        moveBoxesTo(ref);
        m_currentRef = m_currentBible->toGlobal(ref);
        render(ref);
        lock = false; // stays set after a failure: the view no longer changes
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Error"), qt3::fromMessage(ex.what()));
    } catch (...) {
        qt3::MessageBox::critical(this, QStringLiteral("Error"), QStringLiteral("Unknown error"));
    }
}
