#include "message_box.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

const QString markup = u"<b>/tmp/лошо</b>\n&amp; <img src=\"file:///etc/passwd\">"_s;

/// The content of a box while it is open.
struct Seen
{
    int count = 0;
    QString caption;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    QStringList buttons;
    const QWidget* parent = nullptr;
};

void note(const QMessageBox& box, Seen& seen)
{
    ++seen.count;
    seen.caption = box.windowTitle();
    seen.text = box.text();
    seen.icon = box.icon();
    seen.format = box.textFormat();
    seen.parent = box.parentWidget();
    seen.buttons.clear();
    for (const QAbstractButton* button : box.buttons())
        seen.buttons.append(button->text().remove(u'&'));
}

} // namespace

class MessageBoxTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_seen = {}; }
    void cleanup() { qt3::MessageBox::setAnswer({}); }

    void criticalShowsCaptionTextAndOneButton();
    void informationShowsCaptionTextAndOneButton();
    void aboutShowsCaptionAndLines();
    void givenLabelReplacesTheButton();
    void boxIsARealModalOneThatEscapeAndReturnClose_data();
    void boxIsARealModalOneThatEscapeAndReturnClose();
    void answerStandsInForTheUser();

private:
    /// Records the box that opens next and closes it by a key.
    void answerNextBox(Qt::Key key = Qt::Key_Escape)
    {
        QTimer::singleShot(0, this, [this, key] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box)
                return answerNextBox(key);
            note(*box, m_seen);
            QTest::keyClick(box, key);
            box->close(); // in case the key did not
        });
    }

    QWidget m_parent;
    Seen m_seen;
};

void MessageBoxTest::criticalShowsCaptionTextAndOneButton()
{
    answerNextBox();
    qt3::MessageBox::critical(&m_parent, u"Грешка"_s, markup);
    QCOMPARE(m_seen.count, 1);
    QCOMPARE(m_seen.caption, u"Грешка"_s);
    QCOMPARE(m_seen.text, markup);
    QCOMPARE(m_seen.icon, QMessageBox::Critical);
    QCOMPARE(m_seen.format, Qt::PlainText);
    QCOMPARE(m_seen.buttons, QStringList({u"OK"_s}));
    QCOMPARE(m_seen.parent, &m_parent);
}

void MessageBoxTest::informationShowsCaptionTextAndOneButton()
{
    answerNextBox();
    qt3::MessageBox::information(&m_parent, u"Напомняне"_s, markup, u"OK"_s);
    QCOMPARE(m_seen.caption, u"Напомняне"_s);
    QCOMPARE(m_seen.text, markup);
    QCOMPARE(m_seen.icon, QMessageBox::Information);
    QCOMPARE(m_seen.format, Qt::PlainText);
    QCOMPARE(m_seen.buttons, QStringList({u"OK"_s}));
}

void MessageBoxTest::aboutShowsCaptionAndLines()
{
    answerNextBox();
    qt3::MessageBox::about(&m_parent, u"За програмата"_s, u"ред 1\n\nред 3"_s);
    QCOMPARE(m_seen.caption, u"За програмата"_s);
    QCOMPARE(m_seen.text, u"ред 1\n\nред 3"_s);
    QCOMPARE(m_seen.buttons, QStringList({u"OK"_s}));
}

void MessageBoxTest::givenLabelReplacesTheButton()
{
    answerNextBox();
    qt3::MessageBox::critical(&m_parent, u"Грешка"_s, u"what"_s, u"Грешка при превключване на модулите."_s);
    QCOMPARE(m_seen.buttons, QStringList({u"Грешка при превключване на модулите."_s}));
}

void MessageBoxTest::boxIsARealModalOneThatEscapeAndReturnClose_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("label");
    QTest::newRow("Escape") << Qt::Key_Escape << QString();
    QTest::newRow("Return") << Qt::Key_Return << QString();
    QTest::newRow("Escape, own label") << Qt::Key_Escape << u"Да"_s;
    QTest::newRow("Return, own label") << Qt::Key_Return << u"Да"_s;
}

void MessageBoxTest::boxIsARealModalOneThatEscapeAndReturnClose()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, label);
    bool isClosedByKey = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        QWidget* box = QApplication::activeModalWidget();
        if (!box)
            return;
        timer.stop();
        QTest::keyClick(box, key);
        isClosedByKey = !box->isVisible();
        box->close();
    });
    timer.start(0);
    qt3::MessageBox::critical(&m_parent, u"Грешка"_s, u"what"_s, label);
    QVERIFY(isClosedByKey);
}

void MessageBoxTest::answerStandsInForTheUser()
{
    qt3::MessageBox::setAnswer([this](QMessageBox& box) { note(box, m_seen); });
    qt3::MessageBox::critical(&m_parent, u"Грешка"_s, u"едно"_s);
    qt3::MessageBox::information(&m_parent, u"Резултат"_s, u"две"_s, u"Да"_s);
    QCOMPARE(m_seen.count, 2);
    QCOMPARE(m_seen.caption, u"Резултат"_s);
    QCOMPARE(m_seen.text, u"две"_s);
    QCOMPARE(m_seen.buttons, QStringList({u"Да"_s}));

    qt3::MessageBox::setAnswer({});
    answerNextBox();
    qt3::MessageBox::about(&m_parent, u"За"_s, u"три"_s);
    QCOMPARE(m_seen.count, 3);
}

QTEST_MAIN(MessageBoxTest)
#include "message_box_test.moc"
