#include "json_reader.h"

#include "ascii.h"
#include "errors.h"
#include "json_letters.h"
#include "json_shapes.h"
#include "messages.h"

#include <filesystem>

namespace Kedrin::ModTool {

class CJsonReader::Impl
{
public:
    JsonSource source;
    std::uint64_t letters = 0;
    const char* format = nullptr;
};

CJsonReader::CJsonReader(const char* format) : m_impl(std::make_unique<Impl>()) { m_impl->format = format; }
CJsonReader::~CJsonReader() = default;

void CJsonReader::read(const std::string& fileName, std::string_view utf8, const std::string& shownName)
{
    m_impl->source.verses.setFile(shownName);
    read(CJsonDocument(fileName, utf8),
         [&](std::string_view taken) { return proveJsonLetters(fileName, utf8, taken); });
}

void CJsonReader::read(const CJsonDocument& document,
                       const std::function<std::uint64_t(std::string_view taken)>& prove)
{
    CVerseCollector& verses = m_impl->source.verses;
    CJsonShapes(m_impl->source, document).read();
    verses.endVerse();
    m_impl->letters += prove(verses.takeLetters());
}

SourceBible CJsonReader::finish(const std::string& source)
{
    SourceBible bible = m_impl->source.verses.finish(source);
    for (const char* shape : m_impl->source.shapes)
        bible.findings.say(translatable("source"), message(shape, m_impl->format));
    if (m_impl->source.hasBooksByPosition)
        bible.findings.say(translatable("source"),
                           tr("66 books; those without a known name identified by position"));
    bible.letters = m_impl->letters;
    return bible;
}

bool hasJsonExtension(const std::string& fileName)
{
    const std::string extension = lower(std::filesystem::path(fileName).extension().string());
    return extension == ".json" || extension == ".js";
}

} // namespace Kedrin::ModTool
