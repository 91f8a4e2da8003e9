#include "bggui.h"

#include "chapter_document.h"
#include "hit_list_model.h"
#include "message_box.h"
#include "text.h"
#include "word_list_model.h"

#include <QApplication>
#include <QThread>
#include <QTimer>

#include <stdexcept>
#include <utility>

using namespace Kedrin::Tolvo;

// The private functions of the form's slots.

void BibleForm::loadModules(const std::string& modulesPath)
{
    delete std::exchange(m_bibleModules, new CBibleModules(modulesPath));
    if (m_bibleModules->count() == 0)
        throw std::runtime_error(ut::format("No modules found under %s", modulesPath.c_str()));
    for (unsigned int translI = 0; translI < m_bibleModules->count(); ++translI)
        menuTranslations->insertItem(qt3::from1251(m_bibleModules->info(translI)->fullTitle()),
                                     static_cast<int>(translI));
    connect(menuTranslations, &qt3::PopupMenu::activatedId, this, &BibleForm::menuTranslations_activated);

    tabsText = new qt3::TabBar(groupText);
    tabsText->setObjectName(QStringLiteral("tabsText"));
    tabsText->setAccessibleName(tr("Отворени преводи"));
    groupTextLayout->removeWidget(textBrowser);
    groupTextLayout->addWidget(tabsText, 0, 0);
    groupTextLayout->addWidget(textBrowser, 1, 0);
    connect(tabsText, &qt3::TabBar::selected, this, &BibleForm::tabsText_selected);
    connect(tabsText, &qt3::TabBar::chosenAgain, this, [this](int tabID) {
        if (m_currentBible == nullptr)
            tabsText_selected(tabID);
    });
    m_currentBible = nullptr;
}

/// Ends a program whose start has failed, with -1, once its event loop runs. Called without a running loop,
/// or while a message box is open, exit() would close every later box, so the call is retried; it ends with
/// the form.
void BibleForm::endWithTheEventLoop()
{
    constexpr int lookAgain = 10; // milliseconds
    if (QThread::currentThread()->loopLevel() > 0 && QApplication::activeModalWidget() == nullptr)
        QApplication::exit(-1);
    else
        QTimer::singleShot(lookAgain, this, &BibleForm::endWithTheEventLoop);
}

void BibleForm::openTranslation(int bibleIndex)
{
    const auto moduleIndex = static_cast<unsigned int>(bibleIndex);
    // a damaged module throws here; loadBible would end the program
    m_bibleModules->ValidateBible(moduleIndex);
    m_bibles.push_back(m_bibleModules->loadBible(moduleIndex));
    if (tabsText->count() == 0)
        showNoTranslation(false);
    menuTranslations->setItemChecked(bibleIndex, true);
    const int newTabID = tabsText->addTab(menuTranslations->text(bibleIndex));
    tabsText->repaint();
    tabsText->setCurrentTab(newTabID); // already selected if it is the only tab
    tabsText_selected(newTabID);
}

void BibleForm::closeTranslation(int bibleIndex)
{
    const QString title = menuTranslations->text(bibleIndex);
    int tabI = 0;
    while (tabI < tabsText->count() && tabsText->label(tabsText->idAt(tabI)) != title)
        ++tabI;
    const CBible* bible = m_bibles.at(static_cast<std::size_t>(tabI));
    m_bibles.erase(m_bibles.begin() + tabI);
    forget(bible);
    delete bible;
    menuTranslations->setItemChecked(bibleIndex, false);
    if (tabI < tabsText->count()) {
        tabsText->removeId(tabsText->idAt(tabI));
        tabsText->repaint();
        selectAfterClosing(tabI);
    }
}

/// Compares an index with an identifier: a neighbour is selected only if the two happen to be equal.
/// Otherwise, after the current translation is closed, none is current until the user selects a tab.
void BibleForm::selectAfterClosing(int closedTabIndex)
{
    if (closedTabIndex != tabsText->currentTab())
        return;
    if (closedTabIndex > 0 || tabsText->count() > 0) {
        const int newTabID = tabsText->idAt(closedTabIndex > 0 ? closedTabIndex - 1 : 0);
        tabsText->setCurrentTab(newTabID);
        tabsText_selected(newTabID);
    } else {
        showNoTranslation(true);
    }
}

/// Removes all references to a translation that is about to be deleted.
void BibleForm::forget(const CBible* bible)
{
    if (bible != m_currentBible)
        return;
    m_currentBible = nullptr;
    comboSearchText->setListModel(nullptr);
    delete m_words;
    m_words = nullptr;
}

void BibleForm::showNoTranslation(bool none)
{
    tabsText->setVisible(!none);
    textBrowser->setVisible(!none);
    groupSearch->setEnabled(!none);
    toolbarLocation->setEnabled(!none);
}

/// Sets the current translation's words as the list of the search box, whose text is unchanged, and its books
/// as that of the book box.
void BibleForm::offerWordsAndBooks()
{
    auto* words = new WordListModel(*m_currentBible, this);
    comboSearchText->setListModel(words);
    delete std::exchange(m_words, words);

    QStringList books;
    for (unsigned int bookI = 0; bookI < m_currentBible->booksCount(); ++bookI)
        books.append(qt3::from1251(m_currentBible->titles()->shortTitle(bookI)));
    comboBook->setItems(books);
    m_boxesStale = true;
}

/// The current position in the translation that has just become current; its beginning if it lacks the book. The boxes offer
/// what this translation has also if the view is locked.
void BibleForm::showPlace()
{
    CRef place(0, 0, 0);
    try {
        if (!m_currentRef.isNull())
            place = m_currentBible->toLocal(m_currentRef);
    } catch (...) {
        // it lacks the book
    }
    goToRef(place);
    if (std::exchange(m_boxesStale, false)) {
        comboBook->setCurrentItem(static_cast<int>(place.bookID()));
        comboBook_activated(comboBook->currentItem());
    }
}

void BibleForm::moveBoxesTo(const CRef& localRef)
{
    const auto bookN = static_cast<int>(localRef.bookID());
    if (std::exchange(m_boxesStale, false) || bookN != comboBook->currentItem()) {
        comboBook->setCurrentItem(bookN);
        comboBook_activated(bookN);
    }
    const auto chapterN = static_cast<int>(localRef.chapter());
    if (chapterN != comboChapter->currentItem()) {
        comboChapter->setCurrentItem(chapterN);
        comboChapter_activated(chapterN);
    }
    comboVerse->setCurrentItem(static_cast<int>(localRef.verse())); // ignored past the end of the chapter
}

void BibleForm::render(const CRef& localRef)
{
    const bool links = viewChapterHyperLinks->isChecked();
    textBrowser->setChapter(
        chapterDocument(*m_currentBible, localRef.bookID(), localRef.chapter(), localRef.verse(), links));
    const int paragraphsBefore = links ? 1 : 0;
    textBrowser->centreOn(textBrowser->paragraphTop(paragraphsBefore + static_cast<int>(localRef.verse())));
    m_shownRef = localRef;
}

/// Without a current translation the page is unchanged, and the boxes still show its position.
void BibleForm::restoreBoxes()
{
    if (m_shownRef.isNull())
        return;
    comboBook->setCurrentItem(static_cast<int>(m_shownRef.bookID()));
    comboChapter->setCurrentItem(static_cast<int>(m_shownRef.chapter()));
    comboVerse->setCurrentItem(static_cast<int>(m_shownRef.verse()));
}

/// Searches the current translation for m_currentSearchText and lists what is found. If the search fails, the
/// rows of the previous one stay.
void BibleForm::listHits()
{
    try {
        const bool wholeWord = !checkPartialWord->isChecked();
        const bool caseSensitive = !wholeWord && checkCaseSensitive->isChecked();
        std::vector<CRef> hits;
        m_currentBible->searchVerses(qt3::to1251(m_currentSearchText), wholeWord, caseSensitive, hits);
        m_hits->clear(); // rows must not outlive the hits that they show
        m_searchResults = std::move(hits);
        if (m_searchResults.empty()) {
            qt3::MessageBox::information(this, QStringLiteral("Резултат от търсенето"),
                                         QStringLiteral("Текста не е намерен в текущия превод"));
            return;
        }
        m_hits->show(m_searchResults, *m_currentBible);
        listSearchResults->setWidestRows(m_hits->longestRows());
        listSearchResults->resetRows();
    } catch (const std::exception& ex) {
        qt3::MessageBox::critical(this, QStringLiteral("Search Error:"), qt3::fromMessage(ex.what()));
    }
}
