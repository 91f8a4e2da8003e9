// Only the toolkit and the form: the includes of an independent program.
#include <QtWidgets>

#include "bggui.h"

#include <QTest>

#include <type_traits>

namespace {

template <typename Member, typename Toolkit>
constexpr bool isA = std::is_convertible_v<Member, Toolkit*>;

static_assert(isA<decltype(BibleForm::groupSearch), QGroupBox>);
static_assert(isA<decltype(BibleForm::groupSearchOptions), QGroupBox>);
static_assert(isA<decltype(BibleForm::btnHideSearch), QPushButton>);
static_assert(isA<decltype(BibleForm::btnSearch), QPushButton>);
static_assert(isA<decltype(BibleForm::checkRedoSearch), QCheckBox>);
static_assert(isA<decltype(BibleForm::checkCaseSensitive), QCheckBox>);
static_assert(isA<decltype(BibleForm::checkPartialWord), QCheckBox>);
static_assert(isA<decltype(BibleForm::comboSearchText), QComboBox>);
static_assert(isA<decltype(BibleForm::listSearchResults), QListView>);
static_assert(isA<decltype(BibleForm::groupText), QGroupBox>);
static_assert(isA<decltype(BibleForm::textBrowser), QTextBrowser>);
static_assert(isA<decltype(BibleForm::comboBook), QComboBox>);
static_assert(isA<decltype(BibleForm::comboChapter), QComboBox>);
static_assert(isA<decltype(BibleForm::comboVerse), QComboBox>);
static_assert(isA<decltype(BibleForm::menubar), QMenuBar>);
static_assert(isA<decltype(BibleForm::menuFile), QMenu>);
static_assert(isA<decltype(BibleForm::menuTranslations), QMenu>);
static_assert(isA<decltype(BibleForm::menuView), QMenu>);
static_assert(isA<decltype(BibleForm::menuHelp), QMenu>);
static_assert(isA<decltype(BibleForm::toolbarLocation), QToolBar>);
static_assert(isA<decltype(BibleForm::gotoAction), QAction>);
static_assert(isA<decltype(BibleForm::tabsText), QTabBar>);

/// A derived form sees the types of the protected members too.
class DerivedForm : public BibleForm
{
public:
    unsigned int modules() const { return m_bibleModules == nullptr ? 0 : m_bibleModules->count(); }
    bool reads() const { return m_currentBible != nullptr && m_currentBible->booksCount() > 0; }
    int columns() const { return BibleFormLayout->columnCount() + groupTextLayout->columnCount(); }
};

} // namespace

/// What the header of the form declares by itself.
class HeaderTest : public QObject
{
    Q_OBJECT

private slots:
    void membersTypesAreComplete();
    void goToRefStandsBetweenTheSlotsAndTheTexts();
};

void HeaderTest::membersTypesAreComplete()
{
    QVERIFY(sizeof(DerivedForm) > sizeof(QMainWindow));
    int (DerivedForm::*columns)() const = &DerivedForm::columns;
    QVERIFY(columns != nullptr);
}

void HeaderTest::goToRefStandsBetweenTheSlotsAndTheTexts()
{
    QFile file(QStringLiteral(FORM_HEADER));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray header = file.readAll();
    const auto last = header.indexOf("virtual void comboSearchText_textChanged(");
    const auto goToRef = header.indexOf("virtual void goToRef(");
    const auto texts = header.indexOf("virtual void languageChange(");
    QVERIFY(0 < last && last < goToRef && goToRef < texts);
}

QTEST_MAIN(HeaderTest)
#include "header_test.moc"
