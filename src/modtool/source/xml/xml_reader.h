#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Walks an XML text from its beginning to its end: elements and texts, one after another. Comments and processing
/// instructions are passed over. Nothing outside the text is loaded. A document type with declarations of its own is
/// refused, so that no entity but the five of XML exists; nesting is bounded.
class CXmlReader
{
public:
    static constexpr int maxDepth = 100; ///< of elements in one another; no format read here comes near it

    enum class Node
    {
        start, ///< of an element; isEmpty() tells that no end follows
        end,
        text,
        none ///< after the last
    };

    /// @param fileName  for messages
    /// @param utf8      outlives this object
    /// @throws CBuildError  "%s:%u: declares entities or elements of its own, which is not allowed"
    CXmlReader(const std::string& fileName, std::string_view utf8);
    ~CXmlReader();
    CXmlReader(const CXmlReader&) = delete;
    CXmlReader& operator=(const CXmlReader&) = delete;

    /// Goes on to the next node.
    /// @throws CBuildError
    ///     "%s:%u: not well-formed XML: %s"
    ///     "%s:%u: the entity \"%s\" is not known"
    ///     "%s:%u: elements stand in one another more than 100 deep"
    Node next();

    /// Of an element: without prefix; valid until next().
    std::string_view name() const;

    /// Of an element's start: whether it is written <so/>.
    bool isEmpty() const;

    /// How many elements the element stands in; the same at its start and its end.
    int depth() const;

    /// The value of an element's attribute that has no prefix; "" where there is none.
    std::string attribute(const char* name) const;

    /// Of a text: valid until next().
    std::string_view text() const;

    /// The line of the node, from 1.
    std::size_t line() const;

    const std::string& fileName() const { return m_fileName; }

    /// @throws CBuildError  "%s:%u: %s" with the line reached
    [[noreturn]] void fail(const std::string& what) const;

private:
    class CPrivate;
    std::string m_fileName;
    std::unique_ptr<CPrivate> m_private;
};

/// The name of a document's first element, with its prefix left out; "" where the text is no XML as far as that.
std::string rootElement(std::string_view utf8);

/// Calls `use` for each node inside the element that `xml` stands at, and leaves it at the element's end.
template <typename Use>
void forEachInside(CXmlReader& xml, Use&& use)
{
    if (xml.isEmpty())
        return;
    const int depth = xml.depth();
    for (auto node = xml.next(); node != CXmlReader::Node::none; node = xml.next()) {
        if (node == CXmlReader::Node::end && xml.depth() == depth)
            return;
        use(node);
    }
}

/// The text of the element that `xml` stands at, without its tags; reads on to its end.
std::string elementText(CXmlReader& xml);

} // namespace Kedrin::ModTool
