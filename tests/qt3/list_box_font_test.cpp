#include "list_box.h"

#include <QProxyStyle>
#include <QScrollBar>
#include <QStringListModel>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// Has a wide scroll bar that leaves little space for the rows.
class BroadBarStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        return metric == PM_ScrollBarExtent ? 90 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace

class ListBoxFontTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }

    void rowsShrinkUntilTheWidestFits();
    void rowsHaveTheListsFontWhereItFits();
    void anotherStyleAloneFitsTheRowsAnew();

private:
    void fill(int rows)
    {
        QStringList texts;
        for (int row = 0; row < rows; ++row)
            texts.append(u"Битие 1:%1"_s.arg(row + 1));
        m_model.setStringList(texts);
        m_list->resetRows();
    }

    QStringListModel m_model;
    std::unique_ptr<QWidget> m_window;
    qt3::ListBox* m_list = nullptr;
};

void ListBoxFontTest::init()
{
    m_model.setStringList({});
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    m_list = new qt3::ListBox;
    layout->addWidget(m_list);
    m_list->setModel(&m_model);
    m_window->resize(300, 400);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void ListBoxFontTest::rowsShrinkUntilTheWidestFits()
{
    fill(1000); // enough for a scroll bar
    m_list->setFixedWidth(160);
    m_list->setWidestRows({u"Битие 1:9"_s, u"Битие 1:1000"_s, u"Битие"_s});
    const int rowHeight = m_list->visualRect(m_model.index(0)).height();
    m_window->setFont(QFont(u"DejaVu Sans"_s, 30));
    QCoreApplication::processEvents();
    const QFontMetrics painted(m_list->paintedFont());
    QVERIFY(painted.horizontalAdvance(u"Битие 1:1000"_s) < m_list->viewport()->width());
    QCOMPARE(m_list->font().pointSize(), 30);
    m_list->scrollToBottom();
    const QRect last = m_list->visualRect(m_model.index(999));
    QVERIFY(last.right() < m_list->viewport()->width());
    QVERIFY(last.height() >= painted.height() && last.height() < 2 * rowHeight);
}

void ListBoxFontTest::rowsHaveTheListsFontWhereItFits()
{
    fill(3);
    m_list->setFixedWidth(160);
    QCOMPARE(m_list->paintedFont(), m_list->font());
    m_list->setWidestRows({QString(200, u'щ')});
    QVERIFY(m_list->paintedFont() != m_list->font());
    m_list->setFixedWidth(100000);
    QCoreApplication::processEvents();
    QCOMPARE(m_list->paintedFont(), m_list->font());
    m_list->setFixedWidth(160);
    QCoreApplication::processEvents();
    QVERIFY(m_list->paintedFont() != m_list->font());
    m_list->setWidestRows({});
    QCOMPARE(m_list->paintedFont(), m_list->font());
}

void ListBoxFontTest::anotherStyleAloneFitsTheRowsAnew()
{
    fill(3);
    m_list->setFixedWidth(160);
    m_list->setWidestRows({u"Битие 1:100"_s});
    QCOMPARE(m_list->paintedFont(), m_list->font());
    BroadBarStyle broad(u"Fusion"_s);
    QStyle* before = m_list->style();
    for (QWidget* widget :
         {static_cast<QWidget*>(m_list->verticalScrollBar()), static_cast<QWidget*>(m_list)})
        widget->setStyle(&broad);
    QVERIFY(m_list->paintedFont() != m_list->font());
    for (QWidget* widget :
         {static_cast<QWidget*>(m_list->verticalScrollBar()), static_cast<QWidget*>(m_list)})
        widget->setStyle(before);
    QCOMPARE(m_list->paintedFont(), m_list->font());
}

QTEST_MAIN(ListBoxFontTest)
#include "list_box_font_test.moc"
