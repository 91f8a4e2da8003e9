#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// Reads an XML document from its beginning to its end: elements and texts, one after another. Comments and processing
/// instructions are skipped; the texts before and after them are one. Nothing outside the document is loaded. A
/// document type with declarations of its own is refused, so that no entity but the five of XML exists. Nesting, the
/// length of a text, and the names are limited, so that time and memory are in proportion to the document's length.
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
    /// @param utf8      outlives this object; at most 64 MiB
    CXmlReader(const std::string& fileName, std::string_view utf8);
    ~CXmlReader();
    CXmlReader(const CXmlReader&) = delete;
    CXmlReader& operator=(const CXmlReader&) = delete;

    /// Goes on to the next node.
    /// @throws CBuildError
    ///     "%s:%u: declares entities or elements of its own, which is not allowed"
    ///     "%s:%u: not well-formed XML: %s"
    ///     "%s:%u: unknown entity \"%s\""
    ///     "%s:%u: elements stand in one another more than 100 deep"
    Node next();

    /// Of an element: without prefix; valid until next().
    std::string_view name() const;

    /// Of an element's start: whether it is written <so/>, or <so></so>, which is the same.
    bool isEmpty() const;

    /// Of an element's start: whether it is written <so/>.
    bool isEmptyTag() const;

    /// How many elements the element stands in; the same at its start and its end.
    int depth() const;

    /// The value of an element's attribute that has no prefix; "" where there is none.
    std::string attribute(std::string_view name) const;

    /// Of a text: valid until next().
    std::string_view text() const;

    /// The line in which the node begins, from 1.
    std::size_t line() const;

    const std::string& fileName() const { return m_fileName; }

    /// @throws CBuildError  "%s:%u: %s" with the line of the node
    [[noreturn]] void fail(const std::string& what) const;

private:
    class Impl;
    std::string m_fileName;
    std::unique_ptr<Impl> m_impl;
};

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
