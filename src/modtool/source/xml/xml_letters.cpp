#include "xml_letters.h"

#include "errors.h"
#include "letter_proof.h"
#include "messages.h"

#include <expat.h>

#include <exception>
#include <memory>
#include <new>

namespace Kedrin::ModTool {

namespace {

/// Reads the character data of a document. The library is written in C: what the comparison throws waits until it has
/// returned.
class CCharacterData
{
public:
    CCharacterData(const std::string& fileName, std::string_view taken)
        : m_fileName(fileName),
          m_proof(fileName, taken),
          m_parser(XML_ParserCreate("UTF-8"), &XML_ParserFree)
    {
        if (!m_parser)
            throw std::bad_alloc();
        XML_SetUserData(m_parser.get(), this);
        XML_SetCharacterDataHandler(m_parser.get(), [](void* self, const XML_Char* text, int byteCount) {
            static_cast<CCharacterData*>(self)->compare({text, static_cast<std::size_t>(byteCount)});
        });
    }

    std::uint64_t prove(std::string_view utf8)
    {
        // at most 64 MiB
        const auto status = XML_Parse(m_parser.get(), utf8.data(), static_cast<int>(utf8.size()), XML_TRUE);
        if (m_failure)
            std::rethrow_exception(m_failure);
        if (status != XML_STATUS_OK)
            failAtLine(m_fileName, line(),
                       message("not well-formed XML: %s", XML_ErrorString(XML_GetErrorCode(m_parser.get()))));
        return m_proof.finish(line());
    }

private:
    std::size_t line() const { return XML_GetCurrentLineNumber(m_parser.get()); }

    void compare(std::string_view text) noexcept
    {
        try {
            if (!m_failure)
                m_proof.compare(text, line());
        } catch (...) {
            m_failure = std::current_exception();
            XML_StopParser(m_parser.get(), XML_FALSE);
        }
    }

    const std::string& m_fileName;
    CLetterProof m_proof;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
    std::exception_ptr m_failure;
};

} // namespace

std::uint64_t proveXmlLetters(const std::string& fileName, std::string_view utf8, std::string_view taken)
{
    return CCharacterData(fileName, taken).prove(utf8);
}

} // namespace Kedrin::ModTool
