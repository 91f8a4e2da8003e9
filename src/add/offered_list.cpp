#include "offered_list.h"

#include "messages.h"
#include "shown_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace Kedrin::Add {

using namespace ModTool;

namespace {

enum Column
{
    titleColumn,
    languageColumn,
    sizeColumn,
    nameColumn
};

constexpr qsizetype maxTitleCharacters = 120;
constexpr qsizetype maxLanguageCharacters = 30;

/// "български (bg)", the code alone where the toolkit does not know its language.
QString languageName(const std::string& code)
{
    const QString shown = shortLine(code, maxLanguageCharacters);
    const QLocale locale(shown);
    const QString name = locale.language() == QLocale::C ? QString() : locale.nativeLanguageName();
    return name.isEmpty() ? shown : QStringLiteral("%1 (%2)").arg(name, shown);
}

/// "4.2 MB"; "" where it is not known.
QString sizeText(std::uint64_t byteCount)
{
    constexpr std::uint64_t most = std::uint64_t{1} << 60; // of a size that is true
    if (byteCount == 0 || byteCount > most)
        return {};
    return QLocale().formattedDataSize(static_cast<qint64>(byteCount), 1, QLocale::DataSizeSIFormat);
}

/// A code without script and region.
QString mainPart(const QString& code) { return code.section(QLatin1Char('-'), 0, 0).section(u'_', 0, 0); }

QTreeWidget* makeList()
{
    return rowList("swordBibles", translatable("Bibles of SWORD programs"),
                   {translated("Title"), translated("Language"), translated("Size"), translated("Name")});
}

} // namespace

COfferedList::COfferedList() : m_languageRow(new QWidget), m_language(new QComboBox), m_list(makeList())
{
    m_language->setObjectName(QStringLiteral("swordLanguage"));
    auto* heading = new QLabel(translated("&Language:"));
    heading->setBuddy(m_language);
    auto* row = new QHBoxLayout(m_languageRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(heading);
    row->addWidget(m_language);
    row->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_languageRow);
    column->addWidget(m_list, 1);
    connect(m_language, &QComboBox::activated, this, &COfferedList::fill);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &COfferedList::selectionChanged);
    connect(m_list, &QTreeWidget::itemActivated, this, &COfferedList::activated);
    setTexts({});
}

void COfferedList::setTexts(std::vector<OfferedText> texts)
{
    m_texts = std::move(texts);
    fillLanguages();
    fill();
}

void COfferedList::fillLanguages()
{
    std::vector<std::string> codes;
    for (const OfferedText& text : m_texts)
        if (!text.language.empty())
            codes.push_back(text.language);
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    m_language->clear();
    m_language->addItem(translated("All"), QString());
    for (const std::string& code : codes)
        m_language->addItem(languageName(code), fromUtf8(code));
    const QString own = mainPart(QLocale::system().name());
    for (int index = m_language->count() - 1; index > 0; --index)
        if (mainPart(m_language->itemData(index).toString()) == own)
            m_language->setCurrentIndex(index);
    m_languageRow->setVisible(!codes.empty());
    m_list->setColumnHidden(languageColumn, codes.empty());
    m_list->setColumnHidden(sizeColumn, codes.empty());
}

void COfferedList::fill()
{
    const std::string wanted = toUtf8(m_language->currentData().toString());
    QList<QTreeWidgetItem*> items;
    for (const OfferedText& text : m_texts) {
        if (!wanted.empty() && text.language != wanted)
            continue;
        auto* item = new QTreeWidgetItem;
        item->setText(titleColumn, shortLine(text.title, maxTitleCharacters));
        item->setText(languageColumn, shortLine(text.language, maxLanguageCharacters));
        item->setText(sizeColumn, sizeText(text.byteCount));
        item->setTextAlignment(sizeColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(nameColumn, fromUtf8(text.name));
        items.append(item);
    }
    m_list->clear();
    m_list->addTopLevelItems(items);
    m_list->setEnabled(!items.isEmpty());
    if (!items.isEmpty())
        m_list->setCurrentItem(items.first());
    emit selectionChanged();
}

void COfferedList::focusList() { m_list->setFocus(); }

std::string COfferedList::selected() const
{
    const QList<QTreeWidgetItem*> items = m_list->selectedItems();
    return items.isEmpty() ? std::string() : toUtf8(items.first()->text(nameColumn));
}

} // namespace Kedrin::Add
