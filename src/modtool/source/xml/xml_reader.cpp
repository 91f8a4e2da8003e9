#include "xml_reader.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "xml_limits.h"

#include <libxml/xmlreader.h>

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

std::string_view view(const xmlChar* text)
{
    return text ? std::string_view(reinterpret_cast<const char*>(text)) : std::string_view();
}

/// What stands before a document's first element.
struct Prolog
{
    std::size_t end;    ///< where the first element begins, or the text ends
    std::size_t subset; ///< where declarations begin, or npos
};

std::size_t after(std::string_view text, std::string_view what, std::size_t begin)
{
    const std::size_t found = text.find(what, begin);
    return found == std::string_view::npos ? text.size() : found + what.size();
}

/// One past the end of a document type, which begins at `begin`; `subset` is set where it has declarations.
std::size_t documentTypeEnd(std::string_view text, std::size_t begin, std::size_t& subset)
{
    for (std::size_t i = begin; i < text.size(); ++i) {
        if (text[i] == '"' || text[i] == '\'')
            i = std::min(text.find(text[i], i + 1), text.size());
        else if (text[i] == '[') {
            subset = i;
            return text.size();
        } else if (text[i] == '>')
            return i + 1;
    }
    return text.size();
}

Prolog prologOf(std::string_view text)
{
    Prolog prolog{0, std::string_view::npos};
    while (true) {
        const std::size_t tag = std::min(text.find('<', prolog.end), text.size());
        const std::string_view rest = text.substr(tag);
        if (rest.starts_with("<?"))
            prolog.end = after(text, "?>", tag);
        else if (rest.starts_with("<!--"))
            prolog.end = after(text, "-->", tag + 4);
        else if (rest.starts_with("<!DOCTYPE"))
            prolog.end = documentTypeEnd(text, tag, prolog.subset);
        else {
            prolog.end = tag;
            return prolog;
        }
    }
}

} // namespace

class CXmlReader::CPrivate
{
public:
    CPrivate(std::string_view utf8)
        : m_reader(xmlReaderForMemory(utf8.data(), static_cast<int>(utf8.size()), nullptr, "UTF-8",
                                      XML_PARSE_NONET | XML_PARSE_NOCDATA | XML_PARSE_IGNORE_ENC |
                                          XML_PARSE_BIG_LINES))
    {
        if (!m_reader)
            throw std::bad_alloc();
        xmlTextReaderSetStructuredErrorHandler(m_reader, &CPrivate::keepError, this);
    }
    ~CPrivate() { xmlFreeTextReader(m_reader); }
    CPrivate(const CPrivate&) = delete;
    CPrivate& operator=(const CPrivate&) = delete;

    xmlTextReaderPtr reader() const { return m_reader; }

    /// The library finds a name among all that it has met, which takes the longer the more there are; its own limit is
    /// too large. Called when something was read: before, there is no table of names.
    void limitNames()
    {
        const xmlNode* node = m_areNamesLimited ? nullptr : xmlTextReaderCurrentNode(m_reader);
        if (!node)
            return;
        xmlDictSetLimit(node->doc->dict, maxNameBytes);
        m_areNamesLimited = true;
    }
    const std::string& error() const { return m_error; }
    std::size_t errorLine() const { return m_errorLine; }

private:
    static void keepError(void* self, xmlErrorPtr error)
    {
        auto* kept = static_cast<CPrivate*>(self);
        if (error->level != XML_ERR_FATAL || kept->m_hasError)
            return;
        kept->m_error = error->message ? error->message : tooLong;
        if (kept->m_error.find("Huge") != std::string::npos ||
            kept->m_error.find("huge") != std::string::npos)
            kept->m_error = tooLong;
        if (error->code == XML_ERR_NO_MEMORY) // what the library says where limitNames() has it stop
            kept->m_error = tooManyNames;
        kept->m_error.erase(kept->m_error.find_last_not_of(" \n") + 1);
        kept->m_hasError = true;
        kept->m_errorLine = static_cast<std::size_t>(std::max(error->line, 1));
    }

    static constexpr std::size_t maxNameBytes = 1u << 20; // of all together; a format has a thousandth of it

    xmlTextReaderPtr m_reader;
    bool m_areNamesLimited = false;
    static constexpr const char* tooLong = translatable("a part of it is too long");

    static constexpr const char* tooManyNames = translatable("it has too many names");

    /// The first that ends the reading; the library is silent of a text too long.
    std::string m_error = tooLong;
    bool m_hasError = false;
    std::size_t m_errorLine = 1;
};

CXmlReader::CXmlReader(const std::string& fileName, std::string_view utf8) : m_fileName(fileName)
{
    if (const Prolog prolog = prologOf(utf8); prolog.subset != std::string_view::npos)
        failAtLine(fileName,
                   1 + static_cast<std::size_t>(std::count(
                           utf8.begin(), utf8.begin() + static_cast<std::ptrdiff_t>(prolog.subset), '\n')),
                   tr("declares entities or elements of its own, which is not allowed"));
    checkXmlLimits(fileName, utf8);
    m_private = std::make_unique<CPrivate>(utf8);
}

CXmlReader::~CXmlReader() = default;

CXmlReader::Node CXmlReader::next()
{
    while (true) {
        const int result = xmlTextReaderRead(m_private->reader());
        if (result < 0)
            failAtLine(m_fileName, m_private->errorLine(),
                       message("not well-formed XML: %s", tr(m_private->error().c_str())));
        if (result == 0)
            return Node::none;
        m_private->limitNames();
        switch (xmlTextReaderNodeType(m_private->reader())) {
        case XML_READER_TYPE_ELEMENT:
            if (depth() >= maxDepth)
                fail(message("elements stand in one another more than %s deep", maxDepth));
            return Node::start;
        case XML_READER_TYPE_END_ELEMENT:
            return Node::end;
        case XML_READER_TYPE_TEXT:
        case XML_READER_TYPE_CDATA:
        case XML_READER_TYPE_WHITESPACE:
        case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
            return Node::text;
        case XML_READER_TYPE_ENTITY_REFERENCE:
            failAtLine(m_fileName, // such a node has no line of its own
                       static_cast<std::size_t>(xmlTextReaderGetParserLineNumber(m_private->reader())),
                       message("the entity %s is not known", inQuotes(name())));
        default:
            break;
        }
    }
}

std::string_view CXmlReader::name() const { return view(xmlTextReaderConstLocalName(m_private->reader())); }

bool CXmlReader::isEmpty() const { return xmlTextReaderIsEmptyElement(m_private->reader()) == 1; }

int CXmlReader::depth() const { return xmlTextReaderDepth(m_private->reader()); }

std::string CXmlReader::attribute(const char* name) const
{
    xmlChar* value = xmlTextReaderGetAttribute(m_private->reader(), reinterpret_cast<const xmlChar*>(name));
    std::string text(view(value));
    xmlFree(value);
    return text;
}

std::string_view CXmlReader::text() const { return view(xmlTextReaderConstValue(m_private->reader())); }

std::size_t CXmlReader::line() const
{
    const long line = xmlGetLineNo(xmlTextReaderCurrentNode(m_private->reader()));
    return static_cast<std::size_t>(
        line > 0 ? line : std::max(xmlTextReaderGetParserLineNumber(m_private->reader()), 1));
}

void CXmlReader::fail(const std::string& what) const { failAtLine(m_fileName, line(), what); }

std::string rootElement(std::string_view utf8)
{
    const Prolog prolog = prologOf(utf8);
    if ((prolog.end >= utf8.size() && prolog.subset == std::string_view::npos) ||
        !isBlank(utf8.substr(0, utf8.find('<'))))
        return "";
    // Where declarations stand before it, the document type tells its name; the reader refuses them later.
    const std::size_t type = prolog.subset == std::string_view::npos ? prolog.end : utf8.find("<!DOCTYPE");
    std::string_view name = utf8.substr(type + 1);
    if (name.starts_with("!DOCTYPE"))
        name.remove_prefix(std::min(name.find_first_not_of(" \t\r\n", 8), name.size()));
    name = name.substr(0, name.find_first_of(" \t\r\n/>["));
    if (const std::size_t colon = name.find(':'); colon != std::string_view::npos)
        name.remove_prefix(colon + 1);
    return std::string(name);
}

std::string elementText(CXmlReader& xml)
{
    std::string text;
    forEachInside(xml, [&](CXmlReader::Node node) {
        if (node == CXmlReader::Node::text)
            text += xml.text();
    });
    return text;
}

} // namespace Kedrin::ModTool
