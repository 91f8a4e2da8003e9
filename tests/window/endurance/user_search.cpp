#include "user.h"

#include <QLineEdit>
#include <QTest>

// The actions on the search panel.

namespace endurance {

using window_test::FormFixture;

/// Also changes the check boxes.
QString User::search()
{
    const QString typed = m_random.oneOf(m_texts);
    m_model.part = m_random.percent(50);
    m_model.matchCase = m_random.percent(50);
    m_model.repeat = m_random.percent(25);
    form().checkPartialWord->setChecked(m_model.part);
    form().checkCaseSensitive->setChecked(m_model.matchCase);
    form().checkRedoSearch->setChecked(m_model.repeat);
    FormFixture::typeInto(form().comboSearchText, typed);
    FormFixture::press(Qt::Key_Delete);                         // what was completed
    const QString text = form().comboSearchText->currentText(); // perhaps respelled by the completion
    if (text.compare(typed, Qt::CaseInsensitive) == 0)
        m_model.search(text, false);
    if (m_random.percent(50))
        FormFixture::press(Qt::Key_Return);
    else
        QTest::mouseClick(form().btnSearch, Qt::LeftButton);
    return QStringLiteral("search \"%1\", part %2, case %3, repeat %4")
        .arg(text)
        .arg(m_model.part)
        .arg(m_model.matchCase)
        .arg(m_model.repeat);
}

/// The row of the hit; -1 if none is clicked.
int User::clickAnyHit()
{
    const int row = m_model.hitCount() > 0 ? below(m_model.hitCount()) : -1;
    if (row < 0 || !m_model.canShowHit(row))
        return -1;
    form().listSearchResults->scrollTo(form().listSearchResults->model()->index(row, 0));
    m_window.clickHit(row);
    m_model.chooseHit(row);
    return row;
}

/// The button leaves the focus in the list, where the first hit then becomes current.
QString User::searchFromTheList()
{
    const int row = clickAnyHit();
    if (row < 0)
        return search();
    const QString text = form().comboSearchText->currentText();
    QTest::mouseClick(form().btnSearch, Qt::LeftButton);
    m_model.search(text, true);
    return QStringLiteral("click hit %1 and search \"%2\" by the button, part %3")
        .arg(row)
        .arg(text)
        .arg(m_model.part);
}

QString User::clickHit()
{
    const int row = clickAnyHit();
    if (row < 0)
        return search();
    return QStringLiteral("click hit %1").arg(row);
}

/// Clicks a hit, goes to the next one and chooses it again.
QString User::stepHit()
{
    const int row = m_model.hitCount() > 1 ? below(m_model.hitCount() - 1) : -1;
    if (row < 0 || !m_model.canShowHit(row) || !m_model.canShowHit(row + 1))
        return toggleLinks();
    form().listSearchResults->scrollTo(form().listSearchResults->model()->index(row, 0));
    m_window.clickHit(row);
    FormFixture::press(Qt::Key_Down);
    FormFixture::press(Qt::Key_Return);
    m_model.chooseHit(row);
    m_model.chooseHit(row + 1);
    return QStringLiteral("click hit %1, Down, Return").arg(row);
}

} // namespace endurance
