#pragma once

#include "errors.h"
#include "json_reader.h"
#include "source_text.h"
#include "unknown_books.h"

/// JSON texts as they are read, and words of the reports and errors.
namespace json_test {

inline Kedrin::ModTool::SourceBible read(const std::string& json, const std::string& fileName = "f.json")
{
    Kedrin::ModTool::CJsonReader reader;
    reader.read(fileName, json);
    return reader.finish(fileName);
}

inline std::string linesIn(const std::string& json, const std::string& fileName = "f.json")
{
    return test_support::linesOf(read(json, fileName));
}

inline std::string errorIn(const std::string& json, const std::string& fileName = "f.json")
{
    return test_support::messageOf<Kedrin::ModTool::CBuildError>(
        [&] { Kedrin::ModTool::refuseUnknownBooks(read(json, fileName)); });
}

inline const std::string source = "source        ";
inline const std::string books = source + "JSON, books with chapters of verses\n";
inline const std::string records = source + "JSON, verses with book, chapter and verse\n";

inline const std::string unknownShape =
    "unknown JSON structure: neither books with chapters nor numbered verses";
inline const std::string whatToWrite =
    "write its number from 1 to 66, its English name or its OSIS id, such as Gen";

} // namespace json_test
