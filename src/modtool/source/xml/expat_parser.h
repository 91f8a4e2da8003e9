#pragma once

#include <expat.h>

#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The library's parser over one document, for the two that read it. As the library is written in C, what a handler
/// throws waits until the library has returned.
class CExpatParser
{
public:
    /// @param fileName  for messages; outlives this object, as does `utf8`
    /// @param utf8      at most 64 MiB; what it says of its encoding does not count
    /// @param user      what the library gives to the handlers
    CExpatParser(const std::string& fileName, std::string_view utf8, void* user);

    XML_Parser get() const { return m_parser.get(); }

    /// Reads the document, at the second and later calls from where it was stopped.
    /// @returns whether it was stopped; false at the end
    /// @throws CBuildError  "%s:%u: not well-formed XML: %s", "%s:%u: unknown entity \"%s\""; and what a
    ///                      handler throws
    bool read();

    /// Calls `handle()`, from a handler; what that throws ends the reading, and read() throws it.
    template <typename Handle>
    void guard(Handle&& handle) noexcept
    {
        try {
            if (!m_failure)
                handle();
        } catch (...) {
            m_failure = std::current_exception();
            XML_StopParser(get(), XML_FALSE);
        }
    }

    /// Where the piece that a handler is called for begins, in bytes.
    std::size_t offset() const;
    std::string_view token() const;       ///< the piece as it is written
    std::string_view behindToken() const; ///< the rest of the document

    /// The line of an offset, from 1. Fast where offsets ascend.
    std::size_t lineAt(std::size_t offset) const;

    /// Refuses the first reference in a text or tag, as it is written, that is not one of XML's own.
    void refuseUnknownEntity(std::string_view written) const;

    // With the line of offset().
    [[noreturn]] void fail(const std::string& what) const;
    [[noreturn]] void failMalformed(const char* reason) const;

private:
    const std::string& m_fileName;
    std::string_view m_utf8;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
    std::exception_ptr m_failure;
    bool m_hasBegun = false;
    mutable std::size_t m_countedBytes = 0; ///< the lines of these are counted
    mutable std::size_t m_countedLine = 1;
};

} // namespace Kedrin::ModTool
