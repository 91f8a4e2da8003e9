#include "varied_xml.h"

#include <array>
#include <cstdio>

namespace varied_test {

namespace {

/// The first character of a text, which is removed from it; in UTF-8.
std::string takeCharacter(std::string_view& utf8)
{
    std::size_t size = 1;
    while (size < utf8.size() && (static_cast<unsigned char>(utf8[size]) & 0xC0u) == 0x80)
        ++size;
    const std::string character(utf8.substr(0, size));
    utf8.remove_prefix(size);
    return character;
}

/// Of a character of one or two bytes.
char32_t codePointOf(const std::string& character)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
    if (character.size() == 1)
        return byte(0);
    if (character.size() == 2)
        return (byte(0) & 0x1Fu) << 6 | (byte(1) & 0x3Fu);
    return (byte(0) & 0x0Fu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
}

} // namespace

std::string CXmlWriter::blanks()
{
    std::string some;
    for (unsigned int i = m_random.number(3); i > 0; --i)
        some += " \t\n"[m_random.number(3)];
    return some;
}

std::string CXmlWriter::reference(char32_t character)
{
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), m_random.oneIn(2) ? "&#%u;" : "&#x%X;",
                  static_cast<unsigned int>(character));
    return digits.data();
}

void CXmlWriter::remark()
{
    static constexpr const char* remarks[] = {"<!-- <verse n='1'>бел. & -->", "<?instruction 1 > 0?>",
                                              "<!---->", "<!--\n\n-->"};
    m_document += m_random.oneOf(remarks);
}

void CXmlWriter::gap()
{
    m_document += blanks();
    if (m_random.oneIn(8))
        remark();
    m_document += blanks();
}

void CXmlWriter::tag(const std::string& name, Attributes& attributes, const char* end)
{
    static constexpr const char* others[] = {"xml:lang", "script", "x-other", "made"};
    if (m_random.oneIn(4))
        attributes.emplace_back(m_random.oneOf(others), "а > б");
    m_random.shuffle(attributes);
    m_document += '<' + name;
    for (const auto& [key, value] : attributes) {
        const char mark = m_random.oneIn(2) ? '"' : '\'';
        m_document += ' ' + blanks() + key + (m_random.oneIn(8) ? " =\n" : "=") + mark;
        for (std::string_view rest = value; !rest.empty();) {
            const std::string character = takeCharacter(rest);
            m_document += m_random.oneIn(30) ? reference(codePointOf(character)) : character;
        }
        m_document += mark;
    }
    m_document += blanks() + end;
}

void CXmlWriter::open(const std::string& name, Attributes attributes) { tag(name, attributes, ">"); }

void CXmlWriter::close(const std::string& name)
{
    m_document += "</" + name + (m_random.oneIn(8) ? " >" : ">");
}

void CXmlWriter::empty(const std::string& name, Attributes attributes)
{
    const bool isShort = m_random.oneIn(2);
    tag(name, attributes, isShort ? "/>" : ">");
    if (!isShort)
        close(name);
}

void CXmlWriter::element(const std::string& name, const Attributes& attributes, const std::string& content)
{
    open(name, attributes);
    text(content);
    close(name);
}

void CXmlWriter::text(const std::string& utf8)
{
    const std::string blanked = withBlanks(utf8, " \n\t", m_random);
    if (m_random.oneIn(12)) {
        m_document += "<![CDATA[" + blanked + "]]>";
        return;
    }
    for (std::string_view rest = blanked; !rest.empty();) {
        const std::string character = takeCharacter(rest);
        if (m_random.oneIn(60))
            remark();
        if (m_random.oneIn(30))
            m_document += reference(codePointOf(character));
        else if (character == "<" || character == "&")
            m_document += character == "<" ? "&lt;" : "&amp;";
        else if (character == ">" || character == "\"" || character == "'")
            m_document += m_random.oneIn(2)  ? character
                          : character == ">" ? "&gt;"
                          : character == "'" ? "&apos;"
                                             : "&quot;";
        else
            m_document += character;
    }
}

std::string CXmlWriter::document()
{
    gap();
    const std::string content = withLineEnds(m_document, true, m_random);
    if (m_random.oneIn(4))
        if (const std::string bytes =
                encoded("<?xml version='1.0' encoding='windows-1251'?>\n" + content, "WINDOWS-1251");
            !bytes.empty())
            return bytes;
    static constexpr const char* declarations[] = {"<?xml version=\"1.0\"?>\n",
                                                   "<?xml version='1.0' standalone='yes' ?>", ""};
    if (m_random.oneIn(3))
        return "<?xml version=\"1.0\" encoding=\"" + std::string(m_random.oneIn(2) ? "utf-8" : "UTF-8") +
               "\"?>" + content;
    return withByteOrderMark(m_random.oneOf(declarations) + content, m_random);
}

} // namespace varied_test
