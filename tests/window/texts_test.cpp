#include "form_fixture.h"

#include <QAction>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

using namespace window_test;

namespace {

constexpr char repeatedSearch[] =
    "Когато тази опция е избрана търсенето се актулизира при всяко превключване на превода";
constexpr char startSearch[] = "Стартиране на търсенето";
constexpr char wholeWordOnly[] = "Изберете това, за да ограничите търсенето само до пълно съвпадение на дума";
constexpr char foundVerses[] = "Списък на намерените стихове; при избиране с мишката, съответното място в "
                               "текста ще бъде изобразено в дясно";
constexpr char locationBar[] = "Показва/скрива лентата за задаване на позицията в текста";
constexpr char searchBar[] = "Показва/скрива контролите за търсене";
constexpr char gotoTip[] = "Използвайте F5 за бърз достъп до контролите за задавена на позиция в текста";

constexpr struct
{
    const char* object;
    const char* property;
    const char* text;
} allTexts[] = {
    {"BibleForm", "windowTitle", "Kedrin за Linux"},
    {"groupSearch", "title", "Търсене"},
    {"groupSearch", "toolTip", ""},
    {"groupSearch", "whatsThis", ""},
    {"groupSearchOptions", "title", ""},
    {"groupSearchOptions", "toolTip", repeatedSearch},
    {"groupSearchOptions", "whatsThis", repeatedSearch},
    {"btnHideSearch", "text", "x"},
    {"btnHideSearch", "toolTip", startSearch},
    {"btnHideSearch", "whatsThis", startSearch},
    {"btnSearch", "text", "Търси"},
    {"btnSearch", "toolTip", startSearch},
    {"btnSearch", "whatsThis", startSearch},
    {"checkRedoSearch", "text", "Актуализирай"},
    {"checkRedoSearch", "toolTip", ""},
    {"checkRedoSearch", "whatsThis", wholeWordOnly},
    {"checkCaseSensitive", "text", "А ≠ а"},
    {"checkCaseSensitive", "toolTip", wholeWordOnly},
    {"checkCaseSensitive", "whatsThis", wholeWordOnly},
    {"checkPartialWord", "text", "Част от дума"},
    {"checkPartialWord", "toolTip", wholeWordOnly},
    {"checkPartialWord", "whatsThis", wholeWordOnly},
    {"comboSearchText", "toolTip", ""},
    {"comboSearchText", "whatsThis", ""},
    {"listSearchResults", "toolTip", foundVerses},
    {"listSearchResults", "whatsThis", foundVerses},
    {"groupText", "title", ""},
    {"textBrowser", "toolTip", ""},
    {"textBrowser", "whatsThis", ""},
    {"helpAbout", "text", "За &програмата?"},
    {"fileExit", "text", "Изход"},
    {"helpAboutQt", "text", "За &QT?"},
    {"helpWhatsThis", "text", "&Какво е това?"},
    {"_3_betha_demoAction", "text", "0.3 betha demo"},
    {"viewLocationToolbar", "text", "&Място в текста"},
    {"viewLocationToolbar", "toolTip", locationBar},
    {"viewLocationToolbar", "whatsThis", locationBar},
    {"viewSearchBar", "text", "&Търсене"},
    {"viewSearchBar", "toolTip", searchBar},
    {"viewSearchBar", "whatsThis", searchBar},
    {"gotoAction", "text", "&Иди на стих"},
    {"gotoAction", "toolTip", gotoTip},
    {"gotoAction", "whatsThis", ""},
    {"viewFont", "text", "&Шрифт ..."},
    {"viewFont", "toolTip", "Променя шрифта на приложението"},
    {"viewChapterHyperLinks", "text", "Препратки към главите в книгата"},
    {"toolbarLocation", "windowTitle", "Място в текста"},
    {"comboBook", "whatsThis", "Име на  книга от Библията"},
    {"comboBook", "toolTip", ""},
    {"comboChapter", "whatsThis", "Номер на глава"},
    {"comboVerse", "whatsThis", "Номер на стих"},
};

constexpr const char* menuTitles[] = {"&Файл", "Преводи", "Изглед", "&Помощ"};

/// Adds brackets to every text of the form's context.
class Brackets : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* sourceText, const char* comment, int) const override
    {
        if (qstrcmp(context, "BibleForm") != 0 || qstrlen(comment) > 0)
            return {};
        return u'<' + QString::fromUtf8(sourceText) + u'>';
    }
};

/// Lets a test call the function that a change of language calls.
class RetranslatedForm : public BibleForm
{
public:
    using BibleForm::languageChange;
};

QString textOf(const BibleForm& form, const char* object, const char* property)
{
    const auto name = QString::fromLatin1(object);
    const QObject* found = form.objectName() == name ? &form : form.findChild<QObject*>(name);
    return found == nullptr ? QStringLiteral("no such object") : found->property(property).toString();
}

} // namespace

/// The exact texts of the window.
class TextsTest : public QObject
{
    Q_OBJECT

private slots:
    void textsAreAsListed();
    void menuBarTitlesAreAsListed();
    void statusTipsAreNotSet();
    void changingTheLanguageTwiceLeavesTheSameTexts();
    void changingTheLanguageRestoresEveryText();
    void textsAreTranslatedInTheFormsContext();
};

void TextsTest::textsAreAsListed()
{
    FormFixture window;
    window.install("a", alphaModule());
    const BibleForm& form = window.open();
    for (const auto& [object, property, text] : allTexts)
        QVERIFY2(textOf(form, object, property) == QString::fromUtf8(text),
                 qPrintable(QString::fromLatin1("%1.%2 is %3")
                                .arg(QString::fromLatin1(object), QString::fromLatin1(property),
                                     textOf(form, object, property))));
}

void TextsTest::menuBarTitlesAreAsListed()
{
    FormFixture window;
    window.install("a", alphaModule());
    const QList<QAction*> items = window.open().menubar->actions();
    QCOMPARE(items.size(), 4);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(items.at(i)->text(), QString::fromUtf8(menuTitles[i]));
}

void TextsTest::statusTipsAreNotSet()
{
    FormFixture window;
    window.install("a", alphaModule());
    for (const QAction* action :
         window.open().findChildren<QAction*>(QRegularExpression(QStringLiteral("^[^q]"))))
        QVERIFY2(action->statusTip().isEmpty(), qPrintable(action->text()));
}

void TextsTest::changingTheLanguageTwiceLeavesTheSameTexts()
{
    FormFixture window;
    window.install("a", alphaModule());
    auto& form = window.open<RetranslatedForm>();
    form.languageChange();
    form.languageChange();
    for (const auto& [object, property, text] : allTexts)
        QCOMPARE(textOf(form, object, property), QString::fromUtf8(text));
    QCOMPARE(form.menubar->actions().size(), 4);
    QCOMPARE(form.menubar->actions().at(3)->text(), QString::fromUtf8(menuTitles[3]));
    QCOMPARE(form.viewSearchBar->shortcut(), QKeySequence(Qt::Key_F3));
    QCOMPARE(form.viewLocationToolbar->shortcut(), QKeySequence(Qt::Key_F4));
    QCOMPARE(form.gotoAction->shortcut(), QKeySequence(Qt::Key_F5));
    QCOMPARE(form.viewChapterHyperLinks->shortcut(), QKeySequence(Qt::Key_F8));
    QVERIFY(window.takeBoxes().isEmpty());
}

void TextsTest::changingTheLanguageRestoresEveryText()
{
    FormFixture window;
    window.install("a", alphaModule());
    auto& form = window.open<RetranslatedForm>();
    for (const auto& [object, property, text] : allTexts)
        if (*text != '\0' && QString::fromLatin1(object) != form.objectName())
            form.findChild<QObject*>(QString::fromLatin1(object))->setProperty(property, QStringLiteral("?"));
    form.setWindowTitle(QStringLiteral("?"));
    for (QAction* item : form.menubar->actions())
        item->setText(QStringLiteral("?"));
    form.languageChange();
    for (const auto& [object, property, text] : allTexts)
        QCOMPARE(textOf(form, object, property), QString::fromUtf8(text));
    for (int i = 0; i < 4; ++i)
        QCOMPARE(form.menubar->actions().at(i)->text(), QString::fromUtf8(menuTitles[i]));
}

void TextsTest::textsAreTranslatedInTheFormsContext()
{
    FormFixture window;
    window.install("a", alphaModule());
    auto& form = window.open<RetranslatedForm>();
    Brackets brackets;
    QVERIFY(QCoreApplication::installTranslator(&brackets));
    form.languageChange();
    QCoreApplication::removeTranslator(&brackets);
    for (const auto& [object, property, text] : allTexts)
        if (*text != '\0')
            QCOMPARE(textOf(form, object, property), u'<' + QString::fromUtf8(text) + u'>');
    for (int i = 0; i < 4; ++i)
        QCOMPARE(form.menubar->actions().at(i)->text(), u'<' + QString::fromUtf8(menuTitles[i]) + u'>');
}

QTEST_MAIN(TextsTest)
#include "texts_test.moc"
