#pragma once

#include "chapter_view.h"
#include "combo_box.h"
#include "fit_check_box.h"
#include "fit_push_button.h"
#include "list_box.h"
#include "panel_box.h"
#include "popup_menu.h"
#include "tab_bar.h"
#include "tolvo_bible.h"
#include "tolvo_ref.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include <map>
#include <string>
#include <vector>

class HitListModel;
class WordListModel;

/// The program's one window: the chapter view with tabs of open translations above it, the search panel to
/// its left, the location boxes in the tool bar. bggui.cpp builds it, bggui.ui.h has the bodies of its slots.
///
/// Widgets and actions belong to their toolkit parents. The form owns the catalogue and every open
/// translation. The current position is kept in global numbering, so that it can be used with every
/// translation. An exception for which a slot shows no message box leaves the slot and reaches main().
class BibleForm : public QMainWindow
{
    Q_OBJECT

public:
    /// Builds the window and opens the first translation installed under
    /// ut::get_application_dirPath() + "/modules/bibles".
    /// @param name  object name; "BibleForm" when null
    explicit BibleForm(QWidget* parent = nullptr, const char* name = nullptr,
                       Qt::WindowFlags fl = Qt::Window);
    ~BibleForm() override;

    qt3::PanelBox* groupSearch;
    qt3::FramelessBox* groupSearchOptions;
    qt3::FitPushButton* btnHideSearch;
    qt3::FitPushButton* btnSearch;
    qt3::FitCheckBox* checkRedoSearch;
    qt3::FitCheckBox* checkCaseSensitive;
    qt3::FitCheckBox* checkPartialWord;
    qt3::ComboBox* comboSearchText;
    qt3::ListBox* listSearchResults;
    QGroupBox* groupText;
    qt3::ChapterView* textBrowser;
    qt3::ComboBox* comboBook;
    qt3::ComboBox* comboChapter;
    qt3::ComboBox* comboVerse;
    QMenuBar* menubar;
    QMenu* menuFile;
    qt3::PopupMenu* menuTranslations; ///< an item's identifier is the module's index in the catalogue
    QMenu* menuView;
    QMenu* menuHelp;
    QToolBar* toolbarLocation;
    QAction* helpAbout;
    QAction* fileExit;
    QAction* helpAboutQt;
    QAction* helpWhatsThis;
    QAction* _3_betha_demoAction; ///< unused: in no menu, without a key
    QAction* viewLocationToolbar;
    QAction* viewSearchBar;
    QAction* gotoAction;
    QAction* viewFont;
    QAction* viewChapterHyperLinks;
    qt3::TabBar* tabsText = nullptr; ///< tab i belongs to the open translation i; made by init()

    // The order of the slots defines their indices in the meta-object.
public slots:
    virtual void init();
    virtual void destroy();
    virtual void menuTranslations_activated(int bibleIndex);
    virtual void tabsText_selected(int tabID);
    virtual void comboBook_activated(int bookN);
    virtual void comboChapter_activated(int chapterN);
    virtual void comboVerse_activated(int verseN);
    virtual void comboSearchText_activated(const QString&);
    virtual void checkPartialWord_toggled(bool on);
    virtual void btnSearch_pressed();
    virtual void listSearchResults_highlighted(int i);
    virtual void fileExit_activated();
    virtual void helpAbout_activated();
    virtual void helpAboutQt_activated();
    virtual void helpWhatsThis_activated();
    virtual void _3_betha_demoAction_activated();
    virtual void btnHideSearch_clicked();
    virtual void viewLocationToolbar_toggled(bool on);
    virtual void viewSearchBar_toggled(bool on);
    virtual void gotoAction_activated();
    virtual void viewFont_activated();
    virtual void textBrowser_anchorClicked(const QString& name, const QString& href);
    virtual void viewChapterHyperLinks_toggled(bool);
    virtual void comboSearchText_textChanged(const QString&);

public:
    /// Shows the chapter of a reference with its verse marked and centred, and updates the three location
    /// boxes. A global reference is converted; any other is treated as local. Does nothing without a current
    /// translation, and nothing ever again after a rendering has failed.
    virtual void goToRef(const Kedrin::Tolvo::CRef& _ref);

protected slots:
    /// Sets all texts of the window; may be called repeatedly.
    virtual void languageChange();

protected:
    Kedrin::Tolvo::CBibleModules* m_bibleModules = nullptr;
    std::vector<const Kedrin::Tolvo::CBible*> m_bibles; ///< open, in the order of their tabs; owned
    std::vector<Kedrin::Tolvo::CRef> m_searchResults;   ///< global; row i of the list shows element i
    unsigned int m_currentBibleI = 0;
    /// An element of m_bibles; null if none is current.
    const Kedrin::Tolvo::CBible* m_currentBible = nullptr;
    Kedrin::Tolvo::CRef m_currentRef; ///< the shown position, global; null until the first chapter
    QString m_currentSearchText;
    QGridLayout* BibleFormLayout;
    QGridLayout* groupTextLayout;

private:
    void createSearchPanel(QWidget* parent);
    void createSearchOptions();
    void createTextGroup(QWidget* parent);
    void createActions();
    void createLocationToolBar();
    void createMenus();
    void nameControls();
    void makeConnections();
    void translatePanel();
    void translateActions();
    void translateMenus();

    void loadModules(const std::string& modulesPath);
    void endWithTheEventLoop();
    void openTranslation(int bibleIndex);
    void closeTranslation(int bibleIndex);
    void selectAfterClosing(int closedTabIndex);
    void forget(const Kedrin::Tolvo::CBible* bible);
    void showNoTranslation(bool none);
    void offerWordsAndBooks();
    void showPlace();
    void moveBoxesTo(const Kedrin::Tolvo::CRef& localRef);
    void render(const Kedrin::Tolvo::CRef& localRef);
    void restoreBoxes();
    void listHits();

    std::map<int, QMenu*> m_menuBarItems; ///< by fixed identifier
    WordListModel* m_words = nullptr;     ///< of the current translation; the model of comboSearchText
    HitListModel* m_hits = nullptr;       ///< over m_searchResults
    bool m_boxesStale = false;      ///< the chapter and verse boxes still have another translation's counts
    Kedrin::Tolvo::CRef m_shownRef; ///< the shown position, numbered as in the translation shown
};
