#include "expat_parser.h"

#include "errors.h"
#include "messages.h"

#include <algorithm>
#include <new>

namespace Kedrin::ModTool {

namespace {

constexpr std::string_view knownReferences[] = {"&#", "&amp;", "&lt;", "&gt;", "&quot;", "&apos;"};

} // namespace

CExpatParser::CExpatParser(const std::string& fileName, std::string_view utf8, void* user)
    : m_fileName(fileName),
      m_utf8(utf8),
      m_parser(XML_ParserCreate("UTF-8"), &XML_ParserFree)
{
    if (!m_parser)
        throw std::bad_alloc();
    XML_SetUserData(get(), user);
}

bool CExpatParser::read()
{
    const XML_Status status =
        m_hasBegun ? XML_ResumeParser(get())
                   : XML_Parse(get(), m_utf8.data(), static_cast<int>(m_utf8.size()), XML_TRUE);
    m_hasBegun = true;
    if (m_failure)
        std::rethrow_exception(m_failure);
    if (status != XML_STATUS_ERROR)
        return status == XML_STATUS_SUSPENDED;
    const XML_Error error = XML_GetErrorCode(get());
    if (error == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    if (error == XML_ERROR_UNDEFINED_ENTITY)
        refuseUnknownEntity(m_utf8.substr(offset()));
    failMalformed(XML_ErrorString(error));
}

std::size_t CExpatParser::offset() const
{
    return std::min(static_cast<std::size_t>(XML_GetCurrentByteIndex(get())), m_utf8.size());
}

std::string_view CExpatParser::token() const
{
    return m_utf8.substr(offset(), static_cast<std::size_t>(XML_GetCurrentByteCount(get())));
}

std::string_view CExpatParser::behindToken() const { return m_utf8.substr(offset() + token().size()); }

std::size_t CExpatParser::lineAt(std::size_t offset) const
{
    if (offset < m_countedBytes) {
        m_countedBytes = 0;
        m_countedLine = 1;
    }
    const std::string_view between = m_utf8.substr(m_countedBytes, offset - m_countedBytes);
    m_countedLine += static_cast<std::size_t>(std::count(between.begin(), between.end(), '\n'));
    m_countedBytes = offset;
    return m_countedLine;
}

void CExpatParser::fail(const std::string& what) const { failAtLine(m_fileName, lineAt(offset()), what); }

void CExpatParser::failMalformed(const char* reason) const
{
    fail(message("not well-formed XML: %s", reason));
}

void CExpatParser::refuseUnknownEntity(std::string_view written) const
{
    for (std::size_t i = written.find('&'); i != std::string_view::npos; i = written.find('&', i + 1)) {
        const std::string_view reference = written.substr(i);
        const auto beginsReference = [&](std::string_view known) { return reference.starts_with(known); };
        if (std::none_of(std::begin(knownReferences), std::end(knownReferences), beginsReference))
            fail(message("unknown entity %s", inQuotes(reference.substr(1, reference.find(';') - 1))));
    }
}

} // namespace Kedrin::ModTool
