#include "language.h"
#include "missing_sword.h"
#include "shown_text.h"
#include "sword_fixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QLineEdit>
#include <QScrollArea>
#include <QTest>
#include <QTreeWidget>

using namespace add_test;

namespace {

/// A state of the window in which all of a page is seen.
enum class State
{
    empty,
    ready,
    added,
    sword,
    repository,
    network,
    listing,
    missing,
    installed
};

/// A page of SWORD texts.
void bringSword(SwordFixture& fixture, State state)
{
    static const Kedrin::Add::CMissingSword none;
    if (state == State::missing) {
        fixture.openWith(none);
        fixture.window().setCurrentIndex(1);
        QTRY_VERIFY(!fixture.isSeen("swordSource"));
        return;
    }
    fixture.sword().add("Beta", {{"Gen 1:1", "Бог"}});
    fixture.openPage();
    if (state == State::repository) {
        fixture.listFolder();
    } else if (state == State::network) {
        fixture.enterAddress("http://127.0.0.1:1");
    } else if (state == State::listing) {
        auto answers = fixture.answers();
        answers["/mods.d.tar.gz"].kind = build_test::LoopbackServer::Answer::Kind::stalled;
        static std::unique_ptr<build_test::LoopbackServer> server; // until the window is closed
        server = std::make_unique<build_test::LoopbackServer>(answers);
        fixture.enterAddress(server->address());
        fixture.click("networkYes");
    }
}

void bring(SwordFixture& fixture, State state)
{
    install(fixture, "alpha");
    if (state >= State::sword && state <= State::missing)
        return bringSword(fixture, state);
    fixture.open();
    if (state == State::ready || state == State::added) {
        fixture.dropAndWait(fixture.file("alpha.vpl")); // whose name is taken
        if (state == State::added) {
            fixture.typeInto("name", QStringLiteral("x"));
            fixture.addAndWait();
        }
    } else if (state == State::installed) {
        fixture.window().setCurrentIndex(2);
        auto* list = fixture.part<QTreeWidget>("modules");
        list->setCurrentItem(list->topLevelItem(0));
        QTRY_VERIFY(fixture.isSeen("installedDetails"));
        fixture.click("remove");
    }
}

/// The letters that are underlined in what is seen, in capitals.
QString mnemonics(const AddFixture& fixture)
{
    QStringList texts;
    for (int tab = 0; tab < fixture.window().count(); ++tab)
        texts.append(fixture.window().tabText(tab));
    for (const auto* button : fixture.window().findChildren<QAbstractButton*>())
        if (button->isVisible())
            texts.append(button->text());
    for (const auto* label : fixture.window().findChildren<QLabel*>())
        if (label->isVisible() && label->buddy() && label->textFormat() != Qt::PlainText)
            texts.append(label->text());
    QString letters;
    for (const QString& text : texts)
        if (const qsizetype sign = text.indexOf(u'&'); sign >= 0)
            letters.append(text.at(sign + 1).toUpper());
    return letters;
}

/// What is seen and can have the focus by the tab key, in the order of the focus.
QList<QWidget*> stops(const AddFixture& fixture)
{
    QList<QWidget*> found;
    QWidget* widget = &fixture.window();
    do {
        if (widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
            !widget->focusProxy())
            found.append(widget);
        widget = widget->nextInFocusChain();
    } while (widget != &fixture.window());
    return found;
}

bool isCyrillic(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.script() == QChar::Script_Cyrillic; });
}

} // namespace

/// What the window says in the language of the environment, to the eye, the keyboard and a screen reader.
class TextsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { Kedrin::ModTool::chooseLanguage(); }
    void everyTextIsInTheLanguage_data() { states(); }
    void everyTextIsInTheLanguage();
    void mnemonicsDoNotClash_data() { states(); }
    void mnemonicsDoNotClash();
    void everyControlHasAName_data() { states(); }
    void everyControlHasAName();
    void tabKeyGoesFromTopToBottom_data() { states(); }
    void tabKeyGoesFromTopToBottom();
    void countsAgreeWithTheirNouns();

private:
    static void states();
    static bool isBulgarian() { return Kedrin::Add::translated("en") == QStringLiteral("bg"); }
};

void TextsTest::states()
{
    QTest::addColumn<int>("state");
    const char* names[] = {"empty",   "ready",   "added",   "sword",    "repository",
                           "network", "listing", "missing", "installed"};
    for (int state = 0; state <= static_cast<int>(State::installed); ++state)
        QTest::newRow(names[state]) << state;
}

void TextsTest::everyTextIsInTheLanguage()
{
    QFETCH(int, state);
    QCOMPARE(isBulgarian(), qEnvironmentVariable("LC_ALL").startsWith(QStringLiteral("bg")));
    SwordFixture fixture;
    bring(fixture, static_cast<State>(state));
    QStringList texts{fixture.window().windowTitle()};
    for (int tab = 0; tab < fixture.window().count(); ++tab)
        texts.append(fixture.window().tabText(tab));
    for (const auto* button : fixture.window().findChildren<QAbstractButton*>())
        texts.append(button->text());
    for (const auto* label : fixture.window().findChildren<QLabel*>())
        if (label->objectName() != QStringLiteral("samples") &&
            label->objectName() != QStringLiteral("message"))
            texts.append(label->text());
    texts.removeAll(QString());
    QVERIFY(texts.size() > 15);
    for (const QString& text : texts)
        QVERIFY2(isCyrillic(text) == isBulgarian() || text == QStringLiteral("SWORD"), qPrintable(text));
}

void TextsTest::mnemonicsDoNotClash()
{
    QFETCH(int, state);
    SwordFixture fixture;
    bring(fixture, static_cast<State>(state));
    QString letters = mnemonics(fixture);
    QVERIFY(letters.size() >= 3); // of the tabs
    const QString all = letters;
    std::sort(letters.begin(), letters.end());
    QVERIFY2(std::adjacent_find(letters.begin(), letters.end()) == letters.end(), qPrintable(all));
    for (const auto* button : fixture.window().findChildren<QAbstractButton*>())
        if (button->isVisible() && !button->text().isEmpty())
            QVERIFY2(button->text().contains(u'&'), qPrintable(button->text()));
    for (const QChar letter : letters) // of a Bulgarian keyboard
        QVERIFY2(isCyrillic(letter) == isBulgarian(), qPrintable(all));
}

void TextsTest::everyControlHasAName()
{
    QFETCH(int, state);
    SwordFixture fixture;
    bring(fixture, static_cast<State>(state));
    const QList<QWidget*> controls = stops(fixture);
    QVERIFY(controls.size() >= (state == static_cast<int>(State::missing) ? 1 : 2));
    for (QWidget* control : controls) {
        const QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(control);
        const bool isTabBar = control->inherits("QTabBar"); // whose tabs have names
        QVERIFY2(isTabBar || !seen->text(QAccessible::Name).isEmpty(), control->metaObject()->className());
    }
}

void TextsTest::tabKeyGoesFromTopToBottom()
{
    QFETCH(int, state);
    SwordFixture fixture;
    bring(fixture, static_cast<State>(state));
    const QList<QWidget*> controls = stops(fixture);
    int lowest = -1;
    for (const QWidget* control : controls) {
        const int top = control->mapTo(&fixture.window(), QPoint()).y();
        QVERIFY2(top >= lowest - control->height() / 2, qPrintable(control->objectName()));
        lowest = std::max(lowest, top);
    }
    controls.first()->setFocus(Qt::TabFocusReason);
    for (qsizetype next = 1; next < controls.size(); ++next) {
        QTest::keyClick(fixture.window().focusWidget(), Qt::Key_Tab);
        QCOMPARE(fixture.window().focusWidget(), controls.at(next));
    }
}

void TextsTest::countsAgreeWithTheirNouns()
{
    SwordFixture fixture;
    fixture.open();
    fixture.dropAndWait(
        fixture.file("a.usfm", "\\id GEN\n\\c 1\n\\p\n\\v 1 Бог\\f + \\ft а\\f*\n\\v 2 Да\n"));
    QCOMPARE(fixture.textOf("contents"), isBulgarian() ? QStringLiteral("1 книга, 1 глава, 2 стиха")
                                                       : QStringLiteral("1 book, 1 chapter, 2 verses"));
    QCOMPARE(fixture.textOf("changes"),
             isBulgarian() ? QStringLiteral("Пропуснати: 1 бележка") : QStringLiteral("Left out: 1 note"));
}

QTEST_MAIN(TextsTest)
#include "texts_test.moc"
