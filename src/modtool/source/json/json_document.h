#pragma once

#include "json_fields.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

struct JsonValue
{
    enum class Kind : std::uint8_t
    {
        null,
        boolean,
        number,
        string,
        array,
        object
    };

    std::string_view key;  ///< in an object
    std::string_view text; ///< of a string, unescaped; of a number, its digits
    std::uint32_t line = 1;
    std::uint32_t firstChild = 0; ///< indices into the document's values; 0: none
    std::uint32_t nextSibling = 0;
    Kind kind = Kind::null;
    Field field = Field::none; ///< what the key means

    bool isContainer() const { return kind >= Kind::array; }
    bool isString() const { return kind == Kind::string; }
    bool isScalar() const { return kind == Kind::string || kind == Kind::number; }
};

/// A JSON document, the value in a JavaScript file (`var book = {...};`), or a document of another notation that stands for
/// JSON, as a tree of bounded size. Duplicate keys are kept, in order.
class CJsonDocument
{
public:
    /// @param utf8  valid, without byte order mark; not kept
    /// @throws CBuildError
    ///     "%s:%u: not valid JSON: %s", with the text before the error, "%s:%u: not valid JSON: unexpected end"
    ///     "%s:%u: values are nested more than 100 deep"
    ///     "%s:%u: more than 1000000 values", "%s:%u: a string longer than 1 MiB"
    CJsonDocument(const std::string& fileName, std::string_view utf8);

    class CBuilder;
    /// @param maxBytes  of all keys and texts together
    /// @param give      gives the document's parts, in order
    /// @throws CBuildError  what `give` throws, and the errors of size as above
    CJsonDocument(const std::string& fileName, std::size_t maxBytes,
                  const std::function<void(CBuilder&)>& give);
    CJsonDocument(const CJsonDocument&) = delete;
    CJsonDocument& operator=(const CJsonDocument&) = delete;

    const JsonValue& root() const { return m_values.front(); }

    class CChildren;
    /// The children of an array or object, in order; other values have none.
    CChildren childrenOf(const JsonValue& value) const;

    /// The first child whose key has this meaning, or nullptr.
    /// @throws CBuildError  "%s:%u: duplicate key %s in one object"
    const JsonValue* find(const JsonValue& object, Field field) const;

    const std::string& fileName() const { return m_fileName; }

private:
    class CParse;

    const std::string& m_fileName;
    std::vector<JsonValue> m_values;
    std::string m_texts; ///< reserved once, since values point into it
};

/// Takes the parts of a document in their order: a container is opened, what is in it is added, and it is closed; in an
/// object a key precedes each value. The first value is the root.
class CJsonDocument::CBuilder
{
public:
    using Kind = JsonValue::Kind;

    explicit CBuilder(CJsonDocument& document) : m_document(document) {}

    void key(std::string_view text, std::size_t line) { m_key = keep(text, line); }
    void add(Kind kind, std::string_view text, std::size_t line);
    void open(Kind kind, std::size_t line);
    void close() { m_open.pop_back(); }

private:
    struct Open
    {
        std::uint32_t index;
        std::uint32_t lastChild; ///< 0: none
    };

    [[noreturn]] void fail(std::size_t line, const std::string& what) const;
    std::string_view keep(std::string_view text, std::size_t line);

    CJsonDocument& m_document;
    std::vector<Open> m_open;
    std::string_view m_key;
};

class CJsonDocument::CChildren
{
public:
    class CIterator
    {
    public:
        CIterator(const JsonValue* values, std::uint32_t index) : m_values(values), m_index(index) {}
        const JsonValue& operator*() const { return m_values[m_index]; }
        CIterator& operator++()
        {
            m_index = m_values[m_index].nextSibling;
            return *this;
        }
        bool operator!=(const CIterator& other) const { return m_index != other.m_index; }

    private:
        const JsonValue* m_values;
        std::uint32_t m_index;
    };

    CChildren(const JsonValue* values, std::uint32_t first) : m_values(values), m_first(first) {}
    CIterator begin() const { return {m_values, m_first}; }
    CIterator end() const { return {m_values, 0}; }
    bool empty() const { return m_first == 0; }

private:
    const JsonValue* m_values;
    std::uint32_t m_first;
};

/// Whether the text looks like JSON, or JavaScript that contains one JSON value.
bool isJson(std::string_view utf8);

} // namespace Kedrin::ModTool
