#include "bggui.h"

#include <QLineEdit>

// All texts of the window. Some tool tips seem to belong to another control, and two words are misspelt;
// users and manuals know them like this.

void BibleForm::languageChange()
{
    setWindowTitle(tr("Kedrin за Linux"));
    translatePanel();
    translateActions();
    translateMenus();
}

void BibleForm::translatePanel()
{
    const QString repeatedSearch =
        tr("Когато тази опция е избрана търсенето се актулизира при всяко превключване на превода");
    const QString startSearch = tr("Стартиране на търсенето");
    const QString wholeWordOnly =
        tr("Изберете това, за да ограничите търсенето само до пълно съвпадение на дума");
    const QString foundVerses =
        tr("Списък на намерените стихове; при избиране с мишката, съответното място в "
           "текста ще бъде изобразено в дясно");
    const auto explain = [](QWidget* widget, const QString& text) {
        widget->setToolTip(text);
        widget->setWhatsThis(text);
    };

    groupSearch->setTitle(tr("Търсене"));
    groupSearchOptions->setTitle(QString());
    explain(groupSearchOptions, repeatedSearch);
    btnHideSearch->setText(tr("x"));
    explain(btnHideSearch, startSearch);
    btnSearch->setText(tr("Търси"));
    explain(btnSearch, startSearch);
    checkRedoSearch->setText(tr("Актуализирай"));
    checkRedoSearch->setWhatsThis(wholeWordOnly);
    checkCaseSensitive->setText(tr("А ≠ а"));
    explain(checkCaseSensitive, wholeWordOnly);
    checkPartialWord->setText(tr("Част от дума"));
    explain(checkPartialWord, wholeWordOnly);
    explain(listSearchResults, foundVerses);
    groupText->setTitle(QString());
}

void BibleForm::translateActions()
{
    const auto explain = [](QAction* action, const QString& text) {
        action->setToolTip(text);
        action->setWhatsThis(text);
    };

    helpAbout->setText(tr("За &програмата?"));
    fileExit->setText(tr("Изход"));
    helpAboutQt->setText(tr("За &QT?"));
    helpWhatsThis->setText(tr("&Какво е това?"));
    _3_betha_demoAction->setText(tr("0.3 betha demo"));
    viewLocationToolbar->setText(tr("&Място в текста"));
    explain(viewLocationToolbar, tr("Показва/скрива лентата за задаване на позицията в текста"));
    viewLocationToolbar->setShortcut(QKeySequence(tr("F4")));
    viewSearchBar->setText(tr("&Търсене"));
    explain(viewSearchBar, tr("Показва/скрива контролите за търсене"));
    viewSearchBar->setShortcut(QKeySequence(tr("F3")));
    gotoAction->setText(tr("&Иди на стих"));
    gotoAction->setToolTip(tr("Използвайте F5 за бърз достъп до контролите за задавена на позиция в текста"));
    gotoAction->setShortcut(QKeySequence(tr("F5")));
    viewFont->setText(tr("&Шрифт ..."));
    viewFont->setToolTip(tr("Променя шрифта на приложението"));
    viewChapterHyperLinks->setText(tr("Препратки към главите в книгата"));
    viewChapterHyperLinks->setShortcut(QKeySequence(tr("F8")));
}

void BibleForm::translateMenus()
{
    toolbarLocation->setWindowTitle(tr("Място в текста"));
    comboBook->setWhatsThis(tr("Име на  книга от Библията"));
    comboChapter->setWhatsThis(tr("Номер на глава"));
    comboVerse->setWhatsThis(tr("Номер на стих"));
    m_menuBarItems.at(2)->setTitle(tr("&Файл"));
    m_menuBarItems.at(3)->setTitle(tr("Преводи"));
    m_menuBarItems.at(4)->setTitle(tr("Изглед"));
    m_menuBarItems.at(5)->setTitle(tr("&Помощ"));
}

/// Accessible names of the controls that show no label.
void BibleForm::nameControls()
{
    const auto nameBox = [](qt3::ComboBox* box, const QString& name) {
        box->setAccessibleName(name);
        box->lineEdit()->setAccessibleName(name); // a box with a text is announced by that text
    };

    btnHideSearch->setAccessibleName(tr("Скриване на търсенето"));
    btnSearch->setAccessibleName(tr("Търси"));
    checkRedoSearch->setAccessibleName(tr("Повтаряне на търсенето при смяна на превода"));
    checkCaseSensitive->setAccessibleName(tr("Различаване на главни и малки букви"));
    checkPartialWord->setAccessibleName(tr("Част от дума"));
    nameBox(comboSearchText, tr("Текст за търсене"));
    listSearchResults->setAccessibleName(tr("Намерени стихове"));
    groupSearch->setAccessibleName(tr("Търсене"));
    groupSearchOptions->setAccessibleName(tr("Настройки на търсенето"));
    groupText->setAccessibleName(tr("Текст"));
    textBrowser->setAccessibleName(tr("Текст на главата"));
    nameBox(comboBook, tr("Книга"));
    nameBox(comboChapter, tr("Глава"));
    nameBox(comboVerse, tr("Стих"));
    toolbarLocation->setAccessibleName(tr("Място в текста"));
    if (auto* extension = toolbarLocation->findChild<QWidget*>(QStringLiteral("qt_toolbar_ext_button")))
        extension->setAccessibleName(tr("Още полета")); // the toolkit shows it if the bar is too narrow
    menubar->setAccessibleName(tr("Меню"));
}
