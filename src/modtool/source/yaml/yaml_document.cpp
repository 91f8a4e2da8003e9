#include "yaml_document.h"

#include "errors.h"
#include "letter_proof.h"
#include "letters.h"
#include "messages.h"

#include <yaml.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace Kedrin::ModTool {

namespace {

using Parser = std::unique_ptr<yaml_parser_t, decltype(&yaml_parser_delete)>;

/// An event of the library's parser.
class CEvent
{
public:
    /// @returns whether there was no error
    bool parse(yaml_parser_t& parser) { return yaml_parser_parse(&parser, &m_event) != 0; }

    CEvent() = default;
    CEvent(const CEvent&) = delete;
    CEvent& operator=(const CEvent&) = delete;
    ~CEvent() { yaml_event_delete(&m_event); }

    yaml_event_type_t type() const { return m_event.type; }
    std::size_t begin() const { return m_event.start_mark.index; } ///< in characters
    std::size_t end() const { return m_event.end_mark.index; }
    std::size_t line() const { return m_event.start_mark.line + 1; }

    std::string scalar() const
    {
        const auto& data = m_event.data.scalar;
        return {reinterpret_cast<const char*>(data.value), data.length};
    }
    bool isNull() const
    {
        const std::string text = scalar();
        return m_event.data.scalar.style == YAML_PLAIN_SCALAR_STYLE &&
               (text.empty() || text == "null" || text == "~");
    }
    bool isBlock() const
    {
        return m_event.data.scalar.style == YAML_LITERAL_SCALAR_STYLE ||
               m_event.data.scalar.style == YAML_FOLDED_SCALAR_STYLE;
    }
    bool hasEscapes() const { return m_event.data.scalar.style == YAML_DOUBLE_QUOTED_SCALAR_STYLE; }

    /// Of a value.
    bool hasAnchorOrTag() const
    {
        switch (m_event.type) {
        case YAML_ALIAS_EVENT:
            return true;
        case YAML_SCALAR_EVENT:
            return m_event.data.scalar.anchor || m_event.data.scalar.tag;
        case YAML_SEQUENCE_START_EVENT:
            return m_event.data.sequence_start.anchor || m_event.data.sequence_start.tag;
        case YAML_MAPPING_START_EVENT:
            return m_event.data.mapping_start.anchor || m_event.data.mapping_start.tag;
        default:
            return false;
        }
    }

private:
    yaml_event_t m_event{};
};

/// The source, from which the library's marks, in characters and rising, take parts.
class CMarkedSource
{
public:
    explicit CMarkedSource(std::string_view utf8) : m_utf8(utf8) {}

    /// What lies between the last position and this one.
    std::string_view until(std::size_t character)
    {
        const std::size_t begin = m_byte;
        while (m_character < character && m_byte < m_utf8.size()) {
            do
                ++m_byte;
            while (m_byte < m_utf8.size() && (static_cast<unsigned char>(m_utf8[m_byte]) & 0xC0u) == 0x80);
            ++m_character;
        }
        return m_utf8.substr(begin, m_byte - begin);
    }

private:
    std::string_view m_utf8;
    std::size_t m_byte = 0;
    std::size_t m_character = 0;
};

/// The text without comments.
std::string withoutComments(std::string_view utf8)
{
    std::string rest;
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find_first_of("\r\n"), utf8.size());
        rest += utf8.substr(0, std::min(utf8.find('#'), end));
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    return rest;
}

} // namespace

/// Gives a builder the tree, and the document its texts.
class CYamlDocument::CConverter
{
public:
    CConverter(CYamlDocument& document, CJsonDocument::CBuilder& tree, std::string_view utf8)
        : m_fileName(document.m_fileName),
          m_document(document),
          m_tree(tree),
          m_source(utf8),
          m_parser(&m_parserData, &yaml_parser_delete)
    {
        if (yaml_parser_initialize(&m_parserData) == 0)
            throw std::bad_alloc();
        yaml_parser_set_encoding(&m_parserData, YAML_UTF8_ENCODING);
        yaml_parser_set_input_string(&m_parserData, reinterpret_cast<const unsigned char*>(utf8.data()),
                                     utf8.size());
    }

    void convert()
    {
        for (bool isAtEnd = false; !isAtEnd;) {
            CEvent event;
            if (!event.parse(m_parserData))
                failAtLine(m_fileName, m_parserData.problem_mark.line + 1,
                           message("not valid YAML: %s", m_parserData.problem ? m_parserData.problem : ""));
            take(event);
            isAtEnd = event.type() == YAML_STREAM_END_EVENT;
        }
        requireNoLetters(m_source.until(std::string::npos), m_line);
        if (!m_hasRoot)
            openAndClose([] {});
        m_document.m_lastLine = m_line;
    }

private:
    using Kind = JsonValue::Kind;

    struct Level
    {
        bool isMapping;
        std::size_t count = 0; ///< of its items, or of keys and values
    };

    void take(const CEvent& event)
    {
        if (event.hasAnchorOrTag())
            failAtLine(m_fileName, event.line(), tr("anchors, aliases and tags of YAML are not read"));
        switch (event.type()) {
        case YAML_DOCUMENT_START_EVENT:
            if (m_hasDocument)
                failAtLine(m_fileName, event.line(), tr("more than one document in the file"));
            m_source.until(event.end()); // comments, directives and "---"
            m_hasDocument = true;
            break;
        case YAML_SCALAR_EVENT:
            beginValue(event);
            takeScalar(event);
            break;
        case YAML_SEQUENCE_START_EVENT:
        case YAML_MAPPING_START_EVENT:
            beginValue(event);
            open(event);
            break;
        case YAML_SEQUENCE_END_EVENT:
        case YAML_MAPPING_END_EVENT:
            m_tree.close();
            m_levels.pop_back();
            break;
        default:
            break;
        }
    }

    void beginValue(const CEvent& event)
    {
        if (m_levels.empty())
            return moveTo(event.line());
        Level& level = m_levels.back();
        m_isKey = level.isMapping && level.count % 2 == 0;
        if (m_isKey && event.type() != YAML_SCALAR_EVENT)
            failAtLine(m_fileName, event.line(), tr("a key must be a text"));
        ++level.count;
        if (event.type() == YAML_SCALAR_EVENT || !level.isMapping) // a container is in the line of its key
            moveTo(event.line());
    }

    void moveTo(std::size_t line) { m_line = std::max(line, m_line); }

    void open(const CEvent& event)
    {
        constexpr std::size_t deepest = 100;
        if (m_levels.size() == deepest)
            failAtLine(m_fileName, event.line(), message("values are nested more than %s deep", deepest));
        const bool isMapping = event.type() == YAML_MAPPING_START_EVENT;
        m_levels.push_back({isMapping});
        m_tree.open(isMapping ? Kind::object : Kind::array, m_line);
        m_hasRoot = true;
    }

    /// A document without a container is a list.
    template <typename Fill>
    void openAndClose(Fill&& fill)
    {
        m_tree.open(Kind::array, m_line);
        fill();
        m_tree.close();
        m_hasRoot = true;
    }

    void takeScalar(const CEvent& event)
    {
        requireNoLetters(m_source.until(event.begin()), event.line());
        std::string_view written = m_source.until(event.end());
        if (event.isBlock())
            written.remove_prefix(std::min(written.find_first_of("\r\n"), written.size())); // the indicators
        const std::string text = event.scalar();
        if (!event.hasEscapes()) {
            std::string letters;
            appendLetters(text, letters);
            CLetterProof proof(m_fileName, letters);
            proof.compare(written, event.line());
            proof.finish(event.line());
        }
        if (m_levels.empty())
            openAndClose([&] { addValue(event, text); });
        else if (m_isKey)
            m_tree.key(text, m_line);
        else
            addValue(event, text);
    }

    void addValue(const CEvent& event, const std::string& text)
    {
        if (event.isNull())
            return m_tree.add(Kind::null, "", m_line);
        m_tree.add(Kind::string, text, m_line);
        m_document.m_texts += text;
        m_document.m_ends.push_back({m_document.m_texts.size(), m_line});
    }

    /// Whatever is outside the values is punctuation or a comment.
    void requireNoLetters(std::string_view between, std::size_t line) const
    {
        CLetterProof(m_fileName, "").compare(withoutComments(between), line);
    }

    const std::string& m_fileName;
    CYamlDocument& m_document;
    CJsonDocument::CBuilder& m_tree;
    CMarkedSource m_source;
    yaml_parser_t m_parserData{};
    Parser m_parser; ///< of m_parserData
    std::vector<Level> m_levels;
    std::size_t m_line = 1;
    bool m_isKey = false;
    bool m_hasRoot = false;
    bool m_hasDocument = false;
};

namespace {

/// The longest for what is written: "\L" is a character of three bytes.
std::size_t maxBytesOf(std::string_view utf8) { return utf8.size() / 2 * 3 + 4; }

} // namespace

CYamlDocument::CYamlDocument(const std::string& fileName, std::string_view utf8)
    : m_fileName(fileName),
      m_tree(fileName, maxBytesOf(utf8),
             [&](CJsonDocument::CBuilder& tree) { CConverter(*this, tree, utf8).convert(); })
{}

std::uint64_t CYamlDocument::proveLetters(std::string_view taken) const
{
    CLetterProof proof(m_fileName, taken);
    std::size_t begin = 0;
    for (const auto& [end, line] : m_ends) {
        proof.compareMarkedText(std::string_view(m_texts).substr(begin, end - begin), line);
        begin = end;
    }
    return proof.finish(m_lastLine);
}

} // namespace Kedrin::ModTool
