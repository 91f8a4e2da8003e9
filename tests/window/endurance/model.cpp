#include "model.h"

namespace endurance {

namespace {

QString item(const QStringList& items, int n) { return items.value(n); }

QString number(int count, int n) { return n < count ? QString::number(n + 1) : QString(); }

QStringList titlesOf(const Translation& translation)
{
    QStringList titles;
    for (const Translation::Book& book : translation.books)
        titles.append(book.title);
    return titles;
}

QString line(const QStringList& verses, unsigned int verse)
{
    return QStringLiteral("[%1] %2").arg(verse + 1).arg(verses[static_cast<int>(verse)]);
}

} // namespace

Model::Model(QList<Translation> translations, const QString& modulesPath)
    : m_translations(std::move(translations)),
      m_modulesPath(modulesPath)
{}

void Model::Box::offer(int newCount)
{
    count = newCount;
    item = std::max(std::min(item, count - 1), 0);
}

void Model::chooseInMenu(int translation)
{
    if (isOpen(translation))
        return close(translation);
    const Translation& chosen = m_translations[translation];
    if (!chosen.opens())
        return showBox(QStringLiteral("Грешка"),
                       QStringLiteral("Грешка при зареждане на модулите (\"%1\").\n"
                                      "Вероятно инсталацията не е протекла успешно.")
                           .arg(chosen.refusal(m_modulesPath + u'/' + QString::number(translation))));
    const int id = m_nextId++;
    m_open.append(translation);
    m_ids.append(id);
    m_stack.prepend(id);
    makeCurrent(id);
    select(id); // once more: a repeated search is repeated twice
}

/// The neighbour of the closed tab becomes current only if its index is by chance the identifier of the tab
/// that the bar now shows as current.
void Model::close(int translation)
{
    const auto index = static_cast<int>(m_open.indexOf(translation));
    if (m_current == translation)
        m_current.reset();
    m_stack.removeOne(m_ids[index]);
    m_ids.removeAt(index);
    m_open.removeAt(index);
    if (m_stack.isEmpty() || index != m_stack.last())
        return;
    const int neighbour = m_ids[std::max(index - 1, 0)];
    makeCurrent(neighbour);
    select(neighbour);
}

void Model::makeCurrent(int id)
{
    if (id == m_stack.last())
        return;
    m_stack.removeOne(id);
    m_stack.append(id);
    select(id);
}

void Model::chooseTab(int index)
{
    const int id = m_ids[index];
    if (id == m_stack.last() && !m_current)
        select(id);
    else
        makeCurrent(id);
}

void Model::select(int id)
{
    m_current = m_open[m_ids.indexOf(id)];
    m_offered = &current();
    m_book = {static_cast<int>(current().books.size()), 0};
    const int book = m_place ? current().localNumber(static_cast<unsigned int>(m_place->book)) : -1;
    Place local;
    if (book >= 0)
        local = {book, m_place->chapter,
                 m_place->verse - (book == 0 && m_place->chapter == 1 ? current().shift : 0)};
    goTo(local);
    if (repeat && !m_searchText.isEmpty())
        search(m_searchText, false);
}

void Model::goTo(const Place& local)
{
    const QList<QStringList>& chapters = current().books[local.book].chapters;
    const QStringList& verses = chapters[static_cast<int>(local.chapter)];
    m_book.item = local.book;
    m_chapter.offer(static_cast<int>(chapters.size()));
    m_verse.offer(static_cast<int>(chapters[m_chapter.item].size())); // of the chapter before the move
    m_chapter.item = static_cast<int>(local.chapter);
    m_verse.offer(static_cast<int>(verses.size()));
    m_verse.set(local.verse);
    m_place = toGlobal(current(), local);
    m_page = {&current(), local, m_links};
}

Model::Place Model::toGlobal(const Translation& translation, Place local) const
{
    const unsigned int shift = local.book == 0 && local.chapter == 1 ? translation.shift : 0;
    return {static_cast<int>(translation.books[local.book].globalNumber), local.chapter, local.verse + shift};
}

void Model::chooseBook(int item)
{
    m_book.set(static_cast<unsigned int>(item));
    if (!m_current)
        return restoreBoxes();
    m_chapter.offer(static_cast<int>(current().books[m_book.item].chapters.size()));
    chooseChapter(m_chapter.item);
}

void Model::chooseChapter(int item)
{
    m_chapter.set(static_cast<unsigned int>(item));
    if (!m_current)
        return restoreBoxes();
    m_verse.offer(static_cast<int>(current().books[m_book.item].chapters[m_chapter.item].size()));
    chooseVerse(m_verse.item);
}

void Model::chooseVerse(int item)
{
    m_verse.set(static_cast<unsigned int>(item));
    if (!m_current)
        return restoreBoxes();
    goTo({m_book.item, static_cast<unsigned int>(m_chapter.item), static_cast<unsigned int>(m_verse.item)});
}

/// Without a current translation the boxes stay at the page.
void Model::restoreBoxes()
{
    m_book.set(static_cast<unsigned int>(m_page.place.book));
    m_chapter.set(m_page.place.chapter);
    m_verse.set(m_page.place.verse);
}

/// The chapters, as texts, to which the links of the page lead.
QStringList Model::linkTargets() const
{
    QStringList targets;
    const auto count = static_cast<int>(m_page.translation->books[m_page.place.book].chapters.size());
    const auto chapter = static_cast<int>(m_page.place.chapter);
    if (chapter > 0)
        targets.append(QString::number(chapter - 1));
    for (int i = 0; i < count; ++i)
        targets.append(QString::number(i));
    if (chapter < count - 1)
        targets.append(QString::number(chapter + 1));
    return targets + targets;
}

void Model::chooseLink(int n)
{
    if (m_current)
        goTo({m_book.item, linkTargets()[n].toUInt(), 0});
}

void Model::toggleLinks()
{
    m_links = !m_links;
    if (m_current)
        goTo(m_page.place);
}

void Model::search(const QString& text, bool listHasFocus)
{
    if (!m_current)
        return;
    m_searchText = text;
    if (text.isEmpty())
        return showBox(QStringLiteral("Напомняне"), QStringLiteral("Моля, въведете текст за търсене"));
    const bool isWord = current().words().contains(text, Qt::CaseInsensitive);
    if (!part && isWord && current().damage == Translation::hitsOfWords)
        return showBox(QStringLiteral("Search Error:"),
                       QStringLiteral("CFileVector::operator [](): recordIndex out of range"));
    m_hits.clear();
    m_rows.clear();
    const auto sensitivity = part && matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
    for (int book = 0; book < current().books.size(); ++book) {
        const Translation::Book& searched = current().books[book];
        for (int chapter = 0; chapter < searched.chapters.size(); ++chapter) {
            for (int verse = 0; verse < searched.chapters[chapter].size(); ++verse) {
                const QString& verseText = searched.chapters[chapter][verse];
                if (!(part ? verseText.contains(text, sensitivity)
                           : wordsOf(verseText).contains(text, Qt::CaseInsensitive)))
                    continue;
                m_hits.append(toGlobal(
                    current(), {book, static_cast<unsigned int>(chapter), static_cast<unsigned int>(verse)}));
                m_rows.append(QStringLiteral("%1 %2:%3")
                                  .arg(searched.title.left(3))
                                  .arg(chapter + 1)
                                  .arg(m_hits.last().verse + 1));
            }
        }
    }
    if (m_hits.isEmpty())
        showBox(QStringLiteral("Резултат от търсенето"),
                QStringLiteral("Текста не е намерен в текущия превод"));
    else if (listHasFocus)
        chooseHit(0);
}

bool Model::canShowHit(int row) const
{
    return !m_current || current().localNumber(static_cast<unsigned int>(m_hits[row].book)) >= 0;
}

void Model::chooseHit(int row)
{
    if (!m_current)
        return;
    const Place hit = m_hits[row];
    const int book = current().localNumber(static_cast<unsigned int>(hit.book));
    goTo({book, hit.chapter, hit.verse - (book == 0 && hit.chapter == 1 ? current().shift : 0)});
}

Seen Model::seen() const
{
    Seen seen;
    seen.boxes = m_boxes;
    seen.rows = m_rows;
    for (int i = 0; i < m_open.size(); ++i) {
        const QString& title = m_translations[m_open[i]].title;
        seen.tabs.append(i == currentTab() ? u'[' + title + u']' : title);
    }
    for (int i = 0; i < m_translations.size(); ++i)
        if (isOpen(i))
            seen.checked.append(m_translations[i].title);
    if (m_current)
        seen.words = current().words();
    if (m_page.translation == nullptr)
        return seen;
    seen.place = QStringList{item(titlesOf(*m_offered), m_book.item), number(m_chapter.count, m_chapter.item),
                             number(m_verse.count, m_verse.item)}
                     .join(u' ') +
                 QStringLiteral(" of %1 and %2").arg(m_chapter.count).arg(m_verse.count);
    const Translation::Book& book = m_page.translation->books[m_page.place.book];
    const QStringList& verses = book.chapters[static_cast<int>(m_page.place.chapter)];
    for (unsigned int verse = 0; verse < static_cast<unsigned int>(verses.size()); ++verse)
        seen.page.append(line(verses, verse));
    if (m_page.place.verse < static_cast<unsigned int>(verses.size()))
        seen.red = line(verses, m_page.place.verse);
    if (m_page.links) {
        QStringList numbers;
        for (int chapter = 0; chapter < book.chapters.size(); ++chapter)
            numbers.append(QString::number(chapter + 1));
        if (m_page.place.chapter > 0)
            numbers.prepend(QStringLiteral("<< Предишна глава"));
        if (static_cast<int>(m_page.place.chapter) < book.chapters.size() - 1)
            numbers.append(QStringLiteral("Следваща глава >>"));
        seen.page.prepend(numbers.join(u' '));
        seen.page.append(numbers.join(u' '));
    }
    return seen;
}

QString Seen::differenceFrom(const Seen& expected) const
{
    QStringList differences;
    const auto compare = [&](const char* name, const QStringList& is, const QStringList& must) {
        if (is != must)
            differences.append(QStringLiteral("%1 is \"%2\", expected \"%3\"")
                                   .arg(QString::fromLatin1(name), is.join(u'|'), must.join(u'|')));
    };
    compare("place", {place}, {expected.place});
    compare("page", page, expected.page);
    compare("red", {red}, {expected.red});
    compare("tabs", tabs, expected.tabs);
    compare("checked", checked, expected.checked);
    compare("words", words, expected.words);
    compare("rows", rows, expected.rows);
    compare("boxes", boxes, expected.boxes);
    return differences.join(u'\n');
}

} // namespace endurance
