#include "xml_letters.h"

#include "expat_parser.h"
#include "letter_proof.h"

namespace Kedrin::ModTool {

namespace {

/// Compares the character data of a document, each piece as the library gives it.
class CCharacterData
{
public:
    CCharacterData(const std::string& fileName, std::string_view utf8, std::string_view taken)
        : m_parser(fileName, utf8, this),
          m_proof(fileName, taken)
    {
        XML_SetCharacterDataHandler(m_parser.get(), [](void* self, const XML_Char* text, int byteCount) {
            auto& data = *static_cast<CCharacterData*>(self);
            data.m_parser.guard([&] {
                data.m_proof.compare({text, static_cast<std::size_t>(byteCount)}, data.line());
            });
        });
    }

    std::uint64_t prove()
    {
        m_parser.read();
        return m_proof.finish(line());
    }

private:
    std::size_t line() const { return m_parser.lineAt(m_parser.offset()); }

    CExpatParser m_parser;
    CLetterProof m_proof;
};

} // namespace

std::uint64_t proveXmlLetters(const std::string& fileName, std::string_view utf8, std::string_view taken)
{
    return CCharacterData(fileName, utf8, taken).prove();
}

} // namespace Kedrin::ModTool
