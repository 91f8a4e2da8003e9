#include "plain_reader.h"

#include "ascii.h"
#include "book_ids.h"
#include "errors.h"
#include "global_books.h"
#include "messages.h"
#include "plain_headings.h"
#include "plain_letters.h"
#include "plain_line_reader.h"
#include "plain_shape.h"
#include "plain_table_reader.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

std::string givenBook(const PlainInput& input, const std::string& fileName)
{
    if (input.book.empty())
        return bookOfFileName(fileName);
    std::string osis = bookOfField(input.book);
    if (osis.empty())
        throw CBuildError("--book: " + unknownBook(input.book));
    return osis;
}

bool isOsisId(std::string_view text)
{
    const auto known = knownBookCodes();
    return globalIDOf(text) ||
           std::any_of(known.begin(), known.end(), [&](const auto& book) { return book.second == text; });
}

} // namespace

class CPlainReader::Impl
{
public:
    void say(const char* label, const std::string& text) { m_said.emplace_back(label, text); }

    CVerseCollector verses;
    std::uint64_t letters = 0;
    std::vector<std::pair<const char*, std::string>> m_said;
};

CPlainReader::CPlainReader() : m_impl(std::make_unique<Impl>()) {}
CPlainReader::~CPlainReader() = default;

void CPlainReader::read(const std::string& fileName, std::string_view utf8, const PlainInput& input)
{
    const std::string book = givenBook(input, fileName);
    const auto shape = plainShapeOf(utf8, !book.empty());
    if (!shape)
        throw CBuildError(message(
            "%s: is not a table of verses, nor one verse per line, nor verses under headings", fileName));
    if (shape->namesBooks() && !input.book.empty())
        throw CBuildError(message("%s: names its own books, so --book cannot be used", fileName));
    CBadLines badLines;
    m_impl->verses.setFile(input.shownName);
    CPlainVerses verses(m_impl->verses, badLines, shape->namesBooks() ? "" : book, !input.book.empty(),
                        input.takesUnknownBooks);
    if (shape->isTable())
        readPlainTable(utf8, *shape, verses);
    else
        readPlainLines(fileName, utf8, shape->form, verses);
    badLines.refuse(fileName);
    m_impl->verses.endVerse();
    const bool hasEntities = !shape->isTable() && shape->form == VerseForm::hashed;
    m_impl->letters += provePlainLetters(fileName, utf8, hasEntities, m_impl->verses.takeLetters());
    m_impl->say(translatable("read as"), shape->text());
}

SourceBible CPlainReader::finish(const std::string& source)
{
    SourceBible bible = m_impl->verses.finish(source);
    bible.letters = m_impl->letters;
    for (const auto& [label, text] : m_impl->m_said)
        bible.findings.say(label, text);
    return bible;
}

bool isPlainLines(std::string_view utf8, const std::string& path)
{
    return plainShapeOf(utf8, !bookOfFileName(path).empty()).has_value();
}

bool beginsAsVerseLines(std::string_view utf8)
{
    std::string_view line;
    while (!utf8.empty() && (isBlank(line) || line.starts_with('#'))) {
        line = utf8.substr(0, utf8.find('\n'));
        utf8.remove_prefix(std::min(line.size() + 1, utf8.size()));
    }
    const std::string_view book = line.substr(0, line.find('\t'));
    return std::count(line.begin(), line.end(), '\t') >= 3 && !isTableHeader(line) &&
           (isOsisId(book) || bookOfField(book).empty());
}

} // namespace Kedrin::ModTool
