#include "translations.h"

#include <QMap>
#include <QRegularExpression>

namespace endurance {

namespace {

const QStringList vocabulary =
    QStringLiteral("Бог бог рече земя Земята светлина ден Ден и в милост цар ЦАР царят song light 7 12")
        .split(u' ');

/// Verses whose words depend on all the numbers.
Translation::Book book(unsigned int globalNumber, const char* title, const QList<int>& verseCounts,
                       int variant)
{
    Translation::Book made{globalNumber, QString::fromUtf8(title), {}};
    for (int chapter = 0; chapter < verseCounts.size(); ++chapter) {
        QStringList verses;
        for (int verse = 0; verse < verseCounts[chapter]; ++verse) {
            QStringList words = {made.title, QString::number(verse + 1)};
            for (int word = 0; word < 3 + verse % 4; ++word)
                words.append(vocabulary[(variant + 3 * chapter + 5 * verse + 7 * word) % vocabulary.size()]);
            verses.append(words.join(u' '));
        }
        made.chapters.append(verses);
    }
    return made;
}

} // namespace

QStringList wordsOf(const QString& verse)
{
    static const QRegularExpression between(QStringLiteral("\\W+"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    return verse.split(between, Qt::SkipEmptyParts);
}

int Translation::localNumber(unsigned int globalNumber) const
{
    for (int number = 0; number < books.size(); ++number)
        if (books[number].globalNumber == globalNumber)
            return number;
    return -1;
}

QStringList Translation::words() const
{
    QMap<QString, QString> spellings; // by the upper-case word
    for (const Book& book : books)
        for (const QStringList& verses : book.chapters)
            for (const QString& verse : verses)
                for (const QString& word : wordsOf(verse))
                    if (!spellings.contains(word.toUpper()))
                        spellings.insert(word.toUpper(), word);
    return spellings.values();
}

test_support::ModuleFiles Translation::files() const
{
    std::vector<test_support::Book> made;
    for (const Book& book : books) {
        made.push_back({book.globalNumber, book.title.toStdString(), {}});
        for (const QStringList& verses : book.chapters) {
            made.back().chapters.emplace_back();
            for (const QString& verse : verses)
                made.back().chapters.back().push_back(verse.toStdString());
        }
    }
    const std::string diff = shift == 0 ? "" : "1 2 1 0 " + std::to_string(shift) + "\r\n";
    test_support::ModuleFiles files = test_support::makeModule(title.toStdString(), made, diff);
    if (damage == concordance)
        files.bytes.erase("Conc.bin");
    if (damage == hitsOfWords)
        files.bytes["Conc.bin"].clear();
    if (damage == firstChapter)
        files.bytes["CompactText.bin"].resize(20);
    return files;
}

QString Translation::refusal(const QString& folder) const
{
    const QString inner = damage == concordance
                              ? QStringLiteral("CFileVector::CFileVector(): cannot open file ") + folder +
                                    QStringLiteral("/Conc.bin")
                              : QStringLiteral("CBibleText::operator [](): I/O error");
    return QStringLiteral("CBible::CBible(): Error loading Bible (from folder ") + folder +
           QStringLiteral(");\nError message: \"") + inner + u'"';
}

QList<Translation> translations()
{
    const auto named = [](const char* title) { return QString::fromUtf8(title); };
    const QList<int> genesis = {9, 12, 4, 7};
    return {
        {named("Алфа"),
         {book(0, "Битие", genesis, 0), book(7, "Рут", {6, 5}, 1), book(18, "Псалтир", {3, 40, 5}, 2)}},
        {named("Бета"), {book(18, "Псалми", {3, 38, 6}, 3), book(0, "Начало", {9, 10, 5, 7}, 4)}},
        {named("Гама"), {book(0, "Битие", genesis, 5), book(49, "Матей", {8, 2}, 6)}, Translation::none, 1},
        {named("Делта"), {book(7, "Рут", {6, 5}, 7)}, Translation::concordance},
        {named("Етюд"),
         {book(0, "Битие", genesis, 8), book(7, "Книга Рут", {7, 4}, 9)},
         Translation::hitsOfWords},
        {named("Живот"), {book(0, "Битие", genesis, 10)}, Translation::firstChapter},
        {named("Зрък"), {book(49, "Матей", {8, 3}, 11)}},
    };
}

} // namespace endurance
