#include "damaged_reading.h"

#include "application.h"
#include "refusals.h"

#include <QTest>

namespace window_test {

namespace {

const std::vector<QString> searchTexts = {
    QStringLiteral("Бог"),  QStringLiteral("бог"), QStringLiteral("в"),  QStringLiteral("7"),
    QStringLiteral("го"),   QStringLiteral("Го"),  QStringLiteral("щъ"), QStringLiteral("<"),
    QStringLiteral("няма"), QStringLiteral(" "),   QStringLiteral("."),  QString()};

qt3::ComboBox* boxOf(const BibleForm& form, unsigned int n)
{
    return n == 0 ? form.comboBook : n == 1 ? form.comboChapter : form.comboVerse;
}

} // namespace

ReadingEnd DamagedReading::actionsOf(unsigned int count)
{
    for (; count > 0 && m_end.defect.isEmpty(); --count) {
        act();
        check(m_action);
    }
    return m_end;
}

QString DamagedReading::slotException()
{
    try {
        dynamic_cast<qt3::Application&>(*QCoreApplication::instance()).rethrow();
    } catch (const std::exception& ex) {
        return QString::fromUtf8(ex.what());
    } catch (...) {
        return QStringLiteral("unknown");
    }
    return {};
}

void DamagedReading::act()
{
    switch (m_random.below(9)) {
    case 0:
    case 1:
        return choosePlace();
    case 2:
        return typePlace();
    case 3:
        return stepPlace();
    case 4:
    case 5:
        return search();
    case 6:
        m_action = QStringLiteral("F8");
        return FormFixture::press(Qt::Key_F8);
    case 7:
        return followLink();
    default:
        m_action = QStringLiteral("hit");
        if (const auto rows = m_window.rows().size(); rows > 0)
            m_window.clickHit(static_cast<int>(m_random.below(static_cast<std::size_t>(rows))));
    }
}

void DamagedReading::choosePlace()
{
    m_action = QStringLiteral("list of a box");
    qt3::ComboBox* box = boxOf(m_window.form(), m_random.below(3));
    if (box->count() > 0)
        m_window.pick(box, static_cast<int>(m_random.below(static_cast<std::size_t>(box->count()))));
}

void DamagedReading::typePlace()
{
    m_action = QStringLiteral("typing into a box");
    qt3::ComboBox* box = boxOf(m_window.form(), m_random.below(3));
    FormFixture::typeInto(box, QString::number(1 + m_random.below(12)));
    FormFixture::press(Qt::Key_Return);
}

void DamagedReading::stepPlace()
{
    m_action = QStringLiteral("arrow key in a box");
    boxOf(m_window.form(), m_random.below(3))->setFocus();
    FormFixture::press(m_random.percent(50) ? Qt::Key_Down : Qt::Key_Up);
}

void DamagedReading::search()
{
    m_action = QStringLiteral("search");
    const BibleForm& form = m_window.form();
    form.checkPartialWord->setChecked(m_random.percent(50));
    form.checkCaseSensitive->setChecked(m_random.percent(50));
    FormFixture::typeInto(form.comboSearchText, m_random.oneOf(searchTexts));
    if (m_random.percent(50))
        FormFixture::press(Qt::Key_Return);
    else
        QTest::mouseClick(form.btnSearch, Qt::LeftButton);
}

void DamagedReading::followLink()
{
    m_action = QStringLiteral("link");
    if (const auto links = m_window.links().size(); links > 0)
        m_window.clickLink(static_cast<int>(m_random.below(static_cast<std::size_t>(links))));
}

void DamagedReading::check(const QString& action)
{
    const QList<SeenBox> boxes = m_window.takeBoxes();
    if (const QString exception = slotException(); !exception.isEmpty())
        m_end.defect = action + QStringLiteral(": exception out of a slot: ") + exception;
    else if (boxes.size() > 1)
        m_end.defect = action + QStringLiteral(": %1 boxes").arg(boxes.size());
    else if (boxes.size() == 1)
        checkBox(action, boxes.first());
}

void DamagedReading::checkBox(const QString& action, const SeenBox& box)
{
    const std::string text = box.text.toStdString();
    const bool failedBefore = m_end.readingFailed;
    if (box.caption == QLatin1String("Error") && test_support::isPromisedReadingError(text) && !failedBefore)
        m_end.readingFailed = true;
    else if (box.caption == QLatin1String("Search Error:") && test_support::isPromisedSearchError(text))
        m_end.searchFailed = true;
    else if (!(box.caption == QStringLiteral("Резултат от търсенето") &&
               box.text == QStringLiteral("Текста не е намерен в текущия превод")) &&
             !(box.caption == QStringLiteral("Напомняне") &&
               box.text == QStringLiteral("Моля, въведете текст за търсене")))
        m_end.defect = action + QStringLiteral(": box \"") + box.caption + QStringLiteral("\" with \"") +
                       box.text + u'"';
}

} // namespace window_test
