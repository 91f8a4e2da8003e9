#include "bggui.h"

#include "hit_list_model.h"

#include <QStatusBar>

namespace {

/// A child of a box without a layout.
template <typename Widget>
Widget* placed(const char* name, QWidget* parent, const QRect& geometry)
{
    auto* widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    widget->setGeometry(geometry);
    return widget;
}

QAction* newAction(const char* name, QObject* parent)
{
    auto* action = new QAction(parent);
    action->setObjectName(QLatin1String(name));
    return action;
}

QAction* newToggle(const char* name, QObject* parent, bool on)
{
    QAction* action = newAction(name, parent);
    action->setCheckable(true);
    action->setChecked(on);
    return action;
}

} // namespace

BibleForm::BibleForm(QWidget* parent, const char* name, Qt::WindowFlags fl) : QMainWindow(parent, fl)
{
    statusBar();
    setObjectName(name == nullptr ? QStringLiteral("BibleForm") : QString::fromUtf8(name));
    QFont windowFont = font();
    windowFont.setFamily(QStringLiteral("Courier 10 Pitch"));
    windowFont.setPointSize(12);
    setFont(windowFont);

    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("qt_central_widget"));
    setCentralWidget(central);
    BibleFormLayout = new QGridLayout(central);
    BibleFormLayout->setObjectName(QStringLiteral("BibleFormLayout"));
    BibleFormLayout->setContentsMargins(11, 11, 11, 11);
    BibleFormLayout->setSpacing(6);

    createSearchPanel(central);
    createTextGroup(central);
    createActions();
    createLocationToolBar();
    createMenus();
    nameControls();
    languageChange();
    resize(QSize(700, 670).expandedTo(minimumSizeHint()));
    makeConnections();
    textBrowser->setFocus(); // so that scroll keys work immediately and do not press a button
    init();
}

BibleForm::~BibleForm()
{
    destroy();
    for (QObject* child : findChildren<QObject*>()) // destroyed after this object, they may still emit
        child->disconnect(this);
}

void BibleForm::createSearchPanel(QWidget* parent)
{
    groupSearch = new qt3::PanelBox(parent);
    groupSearch->setObjectName(QStringLiteral("groupSearch"));
    groupSearch->setEnabled(false);
    QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    policy.setHeightForWidth(groupSearch->sizePolicy().hasHeightForWidth());
    groupSearch->setSizePolicy(policy);

    createSearchOptions();

    listSearchResults = placed<qt3::ListBox>("listSearchResults", groupSearch, QRect(11, 125, 160, 430));
    m_hits = new HitListModel(this);
    listSearchResults->setModel(m_hits);
    BibleFormLayout->addWidget(groupSearch, 0, 0);
}

void BibleForm::createSearchOptions()
{
    groupSearchOptions = placed<qt3::FramelessBox>("groupSearchOptions", groupSearch, QRect(10, 20, 160, 90));
    btnHideSearch = placed<qt3::FitPushButton>("btnHideSearch", groupSearchOptions, QRect(140, 0, 20, 20));
    btnSearch = placed<qt3::FitPushButton>("btnSearch", groupSearchOptions, QRect(110, 50, 50, 30));
    for (QPushButton* button : {btnHideSearch, btnSearch})
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the list of hits
    checkRedoSearch = placed<qt3::FitCheckBox>("checkRedoSearch", groupSearchOptions, QRect(0, 70, 110, 24));
    checkCaseSensitive =
        placed<qt3::FitCheckBox>("checkCaseSensitive", groupSearchOptions, QRect(0, 50, 71, 24));
    checkCaseSensitive->setEnabled(false);
    checkPartialWord =
        placed<qt3::FitCheckBox>("checkPartialWord", groupSearchOptions, QRect(0, 30, 110, 24));
    comboSearchText = placed<qt3::ComboBox>("comboSearchText", groupSearchOptions, QRect(0, 0, 130, 30));
    comboSearchText->setReturn(qt3::ComboBox::Return::givesText);
    comboSearchText->setKeepsTypedLetters(
        [this] { return checkPartialWord->isChecked() && checkCaseSensitive->isChecked(); });
}

void BibleForm::createTextGroup(QWidget* parent)
{
    groupText = new QGroupBox(parent);
    groupText->setObjectName(QStringLiteral("groupText"));
    auto* column = new QVBoxLayout(groupText);
    column->setSpacing(6);
    column->setContentsMargins(11, 11, 11, 11);
    groupTextLayout = new QGridLayout;
    groupTextLayout->setObjectName(QStringLiteral("groupTextLayout"));
    groupTextLayout->setAlignment(Qt::AlignTop);
    column->addLayout(groupTextLayout);

    textBrowser = new qt3::ChapterView(groupText);
    textBrowser->setObjectName(QStringLiteral("textBrowser"));
    groupTextLayout->addWidget(textBrowser, 0, 0);
    BibleFormLayout->addWidget(groupText, 0, 1);
}

void BibleForm::createActions()
{
    helpAbout = newAction("helpAbout", this);
    fileExit = newAction("fileExit", this);
    helpAboutQt = newAction("helpAboutQt", this);
    helpWhatsThis = newAction("helpWhatsThis", this);
    _3_betha_demoAction = newAction("_3_betha_demoAction", this);
    viewLocationToolbar = newToggle("viewLocationToolbar", this, true);
    viewSearchBar = newToggle("viewSearchBar", this, true);
    gotoAction = newAction("gotoAction", this);
    viewFont = newAction("viewFont", this);
    viewChapterHyperLinks = newToggle("viewChapterHyperLinks", this, false);
    // a key works wherever the focus is, whether or not a visible menu contains the action
    addActions({viewLocationToolbar, viewSearchBar, gotoAction, viewChapterHyperLinks});
}

void BibleForm::createLocationToolBar()
{
    toolbarLocation = new QToolBar(this);
    toolbarLocation->setObjectName(QStringLiteral("toolbarLocation"));
    addToolBar(Qt::TopToolBarArea, toolbarLocation);
    toolbarLocation->setEnabled(false);

    const auto addBox = [this](const char* name) {
        auto* box = new qt3::ComboBox(toolbarLocation);
        box->setObjectName(QLatin1String(name));
        box->setReturn(qt3::ComboBox::Return::goesToItem);
        box->setSizePolicy(QSizePolicy::Expanding, box->sizePolicy().verticalPolicy());
        toolbarLocation->addWidget(box);
        return box;
    };
    comboBook = addBox("comboBook");
    comboChapter = addBox("comboChapter");
    comboVerse = addBox("comboVerse");
}

void BibleForm::createMenus()
{
    menubar = new QMenuBar(this);
    menubar->setObjectName(QStringLiteral("menubar"));
    menubar->setNativeMenuBar(false);
    setMenuBar(menubar);
    // fixes family and size: a font chosen later does not affect the bar
    menubar->setFont(QFont(menubar->font()));

    menuFile = new qt3::PopupMenu(this);
    menuFile->addAction(fileExit);
    menuTranslations = new qt3::PopupMenu(this);
    menuView = new qt3::PopupMenu(this);
    menuView->addActions({viewFont, viewChapterHyperLinks});
    menuView->addSeparator();
    menuView->addActions({viewLocationToolbar, viewSearchBar});
    menuHelp = new qt3::PopupMenu(this);
    menuHelp->addActions({helpAbout, helpAboutQt});
    menuHelp->addSeparator();
    menuHelp->addAction(helpWhatsThis);

    m_menuBarItems = {{2, menuFile}, {3, menuTranslations}, {4, menuView}, {5, menuHelp}};
    for (const auto& [identifier, menu] : m_menuBarItems)
        menubar->addMenu(menu);
    menuFile->setObjectName(QStringLiteral("menuFile"));
    menuTranslations->setObjectName(QStringLiteral("menuTranslations"));
    menuView->setObjectName(QStringLiteral("menuView"));
    menuHelp->setObjectName(QStringLiteral("menuHelp"));
}

void BibleForm::makeConnections()
{
    const auto chosen = &qt3::ComboBox::activatedItem;
    const auto triggered = &QAction::triggered;
    const auto toggled = &QAction::toggled;
    connect(comboChapter, chosen, this, &BibleForm::comboChapter_activated);
    connect(comboVerse, chosen, this, &BibleForm::comboVerse_activated);
    connect(btnSearch, &QPushButton::pressed, this, &BibleForm::btnSearch_pressed);
    connect(comboBook, chosen, this, &BibleForm::comboBook_activated);
    connect(fileExit, triggered, this, &BibleForm::fileExit_activated);
    connect(helpAbout, triggered, this, &BibleForm::helpAbout_activated);
    connect(listSearchResults, &qt3::ListBox::highlighted, this, &BibleForm::listSearchResults_highlighted);
    connect(helpAboutQt, triggered, this, &BibleForm::helpAboutQt_activated);
    connect(helpWhatsThis, triggered, this, &BibleForm::helpWhatsThis_activated);
    connect(_3_betha_demoAction, triggered, this, &BibleForm::_3_betha_demoAction_activated);
    connect(btnHideSearch, &QPushButton::clicked, this, &BibleForm::btnHideSearch_clicked);
    connect(comboSearchText, &qt3::ComboBox::activatedText, this, &BibleForm::comboSearchText_activated);
    connect(viewLocationToolbar, toggled, this, &BibleForm::viewLocationToolbar_toggled);
    connect(viewSearchBar, toggled, this, &BibleForm::viewSearchBar_toggled);
    connect(gotoAction, triggered, this, &BibleForm::gotoAction_activated);
    connect(checkPartialWord, &QCheckBox::toggled, this, &BibleForm::checkPartialWord_toggled);
    connect(viewFont, triggered, this, &BibleForm::viewFont_activated);
    connect(textBrowser, &qt3::ChapterView::anchorClickedNamed, this, &BibleForm::textBrowser_anchorClicked);
    connect(viewChapterHyperLinks, toggled, this, &BibleForm::viewChapterHyperLinks_toggled);
    connect(comboSearchText, &QComboBox::editTextChanged, this, &BibleForm::comboSearchText_textChanged);
}

#include "bggui.ui.h" // the bodies of the slots
