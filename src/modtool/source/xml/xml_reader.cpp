#include "xml_reader.h"

#include "ascii.h"
#include "errors.h"
#include "expat_parser.h"
#include "messages.h"

#include <set>
#include <utility>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxPartBytes = 10000000; // of a name, an attribute or a text
// of all different names together; a format has a thousandth of it
constexpr std::size_t maxNameBytes = 1u << 20;

std::string_view withoutPrefix(std::string_view name)
{
    return name.substr(name.find(':') + 1); // npos + 1 is 0
}

} // namespace

/// The library calls a handler for each start, end and piece of text. It is stopped at each start and end, and resumed
/// when the reader goes on behind it; the pieces of text before are collected.
class CXmlReader::Impl
{
public:
    Impl(const std::string& fileName, std::string_view utf8);

    Node next();
    std::string_view name() const { return withoutPrefix(m_name); }
    bool isEmpty() const { return m_isEmpty; }
    bool isEmptyTag() const { return m_isEmptyTag; }
    int depth() const { return m_node == Node::text && m_element == Node::end ? m_depth + 1 : m_depth; }
    std::string attribute(std::string_view name) const;
    std::string_view text() const { return m_text; }
    std::size_t line() const
    {
        return m_parser.lineAt(m_node == Node::text ? m_textOffset : m_elementOffset);
    }

private:
    void setDocumentTypeHandlers();
    void start(const XML_Char* name, const XML_Char** attributes);
    void end(const XML_Char* name);
    void stopAt(Node element, std::string_view name);
    void addText(std::string_view text);
    void addAttribute(std::string_view name, std::string_view value);
    void limitNames(std::string_view name);
    void limitPart(std::size_t byteCount) const;

    CExpatParser m_parser;
    bool m_hasForeignType = false; ///< a document type outside the document, which may declare entities

    Node m_node = Node::none;    ///< the one that next() gave
    Node m_element = Node::none; ///< the start or end at which the library was stopped
    std::size_t m_elementOffset = 0;
    std::string m_name;
    std::string m_attributes; ///< name, zero byte, value, zero byte, ...
    int m_depth = 0;          ///< of the element
    int m_openElements = 0;   ///< behind it
    bool m_isEmpty = false;
    bool m_isEmptyTag = false;
    bool m_skipsEnd = false; ///< the library tells the end of an empty element too
    std::string m_text;
    std::size_t m_textOffset = 0; ///< of its first piece that is not blank
    bool m_isTextBlank = true;

    std::set<std::string, std::less<>> m_names; ///< all that were met: the library keeps them too
    std::size_t m_nameBytes = 0;
};

CXmlReader::Impl::Impl(const std::string& fileName, std::string_view utf8) : m_parser(fileName, utf8, this)
{
    XML_Parser parser = m_parser.get();
    XML_SetElementHandler(
        parser,
        [](void* self, const XML_Char* name, const XML_Char** attributes) {
            auto& impl = *static_cast<Impl*>(self);
            impl.m_parser.guard([&] { impl.start(name, attributes); });
        },
        [](void* self, const XML_Char* name) {
            auto& impl = *static_cast<Impl*>(self);
            impl.m_parser.guard([&] { impl.end(name); });
        });
    XML_SetCharacterDataHandler(parser, [](void* self, const XML_Char* text, int byteCount) {
        auto& impl = *static_cast<Impl*>(self);
        impl.m_parser.guard([&] { impl.addText({text, static_cast<std::size_t>(byteCount)}); });
    });
    setDocumentTypeHandlers();
}

void CXmlReader::Impl::setDocumentTypeHandlers()
{
    XML_Parser parser = m_parser.get();
    XML_SetStartDoctypeDeclHandler(
        parser, [](void* self, const XML_Char*, const XML_Char*, const XML_Char*, int hasDeclarations) {
            auto& impl = *static_cast<Impl*>(self);
            impl.m_hasForeignType = true;
            impl.m_parser.guard([&] {
                if (hasDeclarations)
                    impl.m_parser.fail(tr("declares entities or elements of its own, which is not allowed"));
            });
        });
    XML_SetSkippedEntityHandler(parser, [](void* self, const XML_Char*, int) {
        auto& impl = *static_cast<Impl*>(self);
        impl.m_parser.guard([&] { impl.m_parser.refuseUnknownEntity(impl.m_parser.token()); });
    });
}

CXmlReader::Node CXmlReader::Impl::next()
{
    if (m_node == Node::text) // the element behind it has been reached
        return m_node = m_element;
    m_text.clear();
    m_isTextBlank = true;
    if (!m_parser.read())
        return m_node = m_element = Node::none;
    return m_node = m_text.empty() ? m_element : Node::text;
}

void CXmlReader::Impl::start(const XML_Char* name, const XML_Char** attributes)
{
    const std::string_view tag = m_parser.token();
    if (m_openElements >= maxDepth)
        m_parser.fail(message("elements are nested more than %s deep", maxDepth));
    if (m_hasForeignType) // then the library leaves unknown entities in attributes out
        m_parser.refuseUnknownEntity(tag);
    limitNames(name);
    m_attributes.clear();
    for (; *attributes; attributes += 2)
        addAttribute(attributes[0], attributes[1]);
    m_isEmptyTag = tag.ends_with("/>");
    m_isEmpty = m_skipsEnd = m_isEmptyTag || m_parser.behindToken().starts_with("</");
    m_depth = m_openElements;
    m_openElements += m_isEmpty ? 0 : 1;
    stopAt(Node::start, name);
}

void CXmlReader::Impl::end(const XML_Char* name)
{
    if (std::exchange(m_skipsEnd, false))
        return;
    m_isEmpty = m_isEmptyTag = false;
    m_depth = --m_openElements;
    stopAt(Node::end, name);
}

void CXmlReader::Impl::stopAt(Node element, std::string_view name)
{
    m_element = element;
    m_elementOffset = m_parser.offset();
    m_name = name;
    XML_StopParser(m_parser.get(), XML_TRUE);
}

void CXmlReader::Impl::addText(std::string_view text)
{
    if (m_isTextBlank) {
        m_textOffset = m_parser.offset();
        m_isTextBlank = isBlank(text);
    }
    limitPart(m_text.size() + text.size());
    m_text += text;
}

void CXmlReader::Impl::addAttribute(std::string_view name, std::string_view value)
{
    limitPart(value.size());
    limitNames(name);
    m_attributes.append(name).append(1, '\0').append(value).append(1, '\0');
}

void CXmlReader::Impl::limitNames(std::string_view name)
{
    limitPart(name.size());
    if (m_names.contains(name))
        return;
    m_nameBytes += name.size();
    if (m_nameBytes > maxNameBytes)
        m_parser.failMalformed(tr("it has too many names"));
    m_names.emplace(name);
}

void CXmlReader::Impl::limitPart(std::size_t byteCount) const
{
    if (byteCount > maxPartBytes)
        m_parser.failMalformed(tr("part of it is too long"));
}

std::string CXmlReader::Impl::attribute(std::string_view name) const
{
    for (std::string_view rest = m_attributes; !rest.empty();) {
        const std::string_view key = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(key.size() + 1);
        const std::string_view value = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(value.size() + 1);
        if (key == name)
            return std::string(value);
    }
    return "";
}

CXmlReader::CXmlReader(const std::string& fileName, std::string_view utf8)
    : m_fileName(fileName),
      m_impl(std::make_unique<Impl>(m_fileName, utf8))
{}

CXmlReader::~CXmlReader() = default;

CXmlReader::Node CXmlReader::next() { return m_impl->next(); }
std::string_view CXmlReader::name() const { return m_impl->name(); }
bool CXmlReader::isEmpty() const { return m_impl->isEmpty(); }
bool CXmlReader::isEmptyTag() const { return m_impl->isEmptyTag(); }
int CXmlReader::depth() const { return m_impl->depth(); }
std::string CXmlReader::attribute(std::string_view name) const { return m_impl->attribute(name); }
std::string_view CXmlReader::text() const { return m_impl->text(); }
std::size_t CXmlReader::line() const { return m_impl->line(); }
void CXmlReader::fail(const std::string& what) const { failAtLine(m_fileName, line(), what); }

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
