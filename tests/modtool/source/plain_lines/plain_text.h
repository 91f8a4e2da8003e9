#pragma once

#include "errors.h"
#include "plain_reader.h"
#include "source_text.h"

/// Plain text and tables of verses as they are read, in a few words.
namespace plain_test {

inline Kedrin::ModTool::SourceBible read(const std::string& text, const std::string& book = "",
                                         const std::string& file = "f.txt")
{
    Kedrin::ModTool::CPlainReader reader;
    reader.read(file, text, {book, ""});
    return reader.finish(file);
}

inline std::string versesOf(const std::string& text, const std::string& book = "")
{
    return test_support::linesOf(read(text, book));
}

inline std::string refusalOf(const std::string& text, const std::string& book = "")
{
    return test_support::messageOf<Kedrin::ModTool::CBuildError>([&] { read(text, book); });
}

/// The first line of the report.
inline std::string understood(const std::string& text)
{
    const std::string report = read(text).findings.text();
    return report.substr(0, report.find('\n'));
}

} // namespace plain_test
