#include "text.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TextTest : public QObject
{
    Q_OBJECT

private slots:
    void bytesOfTheAlphabetBecomeLetters();
    void everyAssignedByteComesBack();
    void unassignedByteIsTheReplacementCharacter();
    void textEndsAtTheFirstZeroByte();
    void noBytesGiveEmptyText();
    void whatHasNoByteIsAQuestionMark_data();
    void whatHasNoByteIsAQuestionMark();
    void messageInUtf8StaysUtf8();
    void messageThatIsNoUtf8IsWindows1251();
    void messageCutInsideACharacterIsWindows1251();
    void nullMessageIsEmpty();
};

void TextTest::bytesOfTheAlphabetBecomeLetters()
{
    QCOMPARE(qt3::from1251("\xC1\xE8\xE1\xEB\xE8\xFF \xB9 1"), u"Библия № 1"_s);
    QCOMPARE(qt3::to1251(u"Библия № 1"_s), std::string("\xC1\xE8\xE1\xEB\xE8\xFF \xB9 1"));
}

void TextTest::everyAssignedByteComesBack()
{
    for (int value = 1; value < 256; ++value) {
        const std::string byte(1, char(value));
        if (value != 0x98)
            QCOMPARE(qt3::to1251(qt3::from1251(byte)), byte);
    }
}

void TextTest::unassignedByteIsTheReplacementCharacter() { QCOMPARE(qt3::from1251("a\x98z"), u"a\uFFFDz"_s); }

void TextTest::textEndsAtTheFirstZeroByte()
{
    using namespace std::string_view_literals;
    QCOMPARE(qt3::from1251("\xC0\xE7\0\xE8"sv), u"Аз"_s);
    QCOMPARE(qt3::from1251("\0x"sv), QString());
}

void TextTest::noBytesGiveEmptyText()
{
    QCOMPARE(qt3::from1251({}), QString());
    QCOMPARE(qt3::to1251(QString()), std::string());
    QCOMPARE(qt3::to1251(u""_s), std::string());
}

void TextTest::whatHasNoByteIsAQuestionMark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("greek") << u"aλb"_s << QByteArray("a?b");
    QTest::newRow("outside the plane: one for each unit") << u"a😀b"_s << QByteArray("a??b");
    QTest::newRow("U+0098") << u"a\u0098b"_s << QByteArray("a?b");
    QTest::newRow("U+FFFD") << u"a\uFFFDb"_s << QByteArray("a?b");
    QTest::newRow("U+0000") << u"a"_s + QChar(u'\0') + QChar(u'b') << QByteArray("a?b");
}

void TextTest::whatHasNoByteIsAQuestionMark()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    QCOMPARE(qt3::to1251(text), bytes.toStdString());
}

void TextTest::messageInUtf8StaysUtf8()
{
    QCOMPARE(qt3::fromMessage("No modules found under /home/Иван/modules"),
             u"No modules found under /home/Иван/modules"_s);
}

void TextTest::messageThatIsNoUtf8IsWindows1251()
{
    QCOMPARE(qt3::fromMessage("no book \xC1\xE8\xF2\xE8\xE5"), u"no book Битие"_s);
}

void TextTest::messageCutInsideACharacterIsWindows1251()
{
    QCOMPARE(qt3::fromMessage("end \xD0"), u"end Р"_s);
}

void TextTest::nullMessageIsEmpty()
{
    QCOMPARE(qt3::fromMessage(nullptr), QString());
    QCOMPARE(qt3::fromMessage(""), QString());
}

QTEST_APPLESS_MAIN(TextTest)
#include "text_test.moc"
