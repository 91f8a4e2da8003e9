#include "source_format.h"

#include "ascii.h"
#include "beblia_reader.h"
#include "ces_reader.h"
#include "element_search.h"
#include "errors.h"
#include "json_document.h"
#include "json_reader.h"
#include "messages.h"
#include "opensong_reader.h"
#include "osis_reader.h"
#include "plain_reader.h"
#include "root_element.h"
#include "sqlite_database.h"
#include "sqlite_reader.h"
#include "text_input.h"
#include "usfm_reader.h"
#include "usfx_reader.h"
#include "usx_reader.h"
#include "verse_line_header.h"
#include "verse_line_reader.h"
#include "yaml_reader.h"
#include "zefania_reader.h"

#include <algorithm>

namespace Kedrin::ModTool {

namespace {

SourceBible readUsfmFile(const std::string& fileName, const std::string& content)
{
    CUsfmReader reader;
    reader.read(fileName, content);
    return reader.finish(fileName);
}

SourceBible readUsxFile(const std::string& fileName, const std::string& content)
{
    CUsxReader reader;
    reader.read(fileName, content);
    return reader.finish(fileName);
}

SourceBible readJsonFile(const std::string& fileName, const std::string& content)
{
    CJsonReader reader;
    reader.read(fileName, content);
    return reader.finish(fileName);
}

SourceBible readPlainFile(const std::string& fileName, const std::string& content, const ReadOptions& options)
{
    CPlainReader reader;
    reader.read(fileName, content, {options.book, "", options.skipUnknownBooks});
    return reader.finish(fileName);
}

/// Format of the file to read a content in. A text whose book is given can only be plain lines.
SourceFormat formatOf(const std::string& content, const std::string& fileName, const ReadOptions& options)
{
    SourceFormat format = options.format;
    if (format == SourceFormat::detected) {
        format = detectFormat(content, fileName);
        if (format == SourceFormat::verseLines && !options.book.empty())
            format = SourceFormat::plainLines;
    }
    if (format != SourceFormat::plainLines && !options.book.empty())
        throw CBuildError(message("%s: --book is for a file of plain lines", fileName));
    return format;
}

SourceBible readAs(SourceFormat format, const std::string& fileName, std::string content,
                   const ReadOptions& options)
{
    switch (format) {
    case SourceFormat::beblia:
        return readBeblia(fileName, content);
    case SourceFormat::ces:
        return readCes(fileName, content);
    case SourceFormat::opensong:
        return readOpenSong(fileName, content);
    case SourceFormat::plainLines:
        return readPlainFile(fileName, content, options);
    case SourceFormat::osis:
        return readOsis(fileName, content);
    case SourceFormat::zefania:
        return readZefania(fileName, content);
    case SourceFormat::json:
        return readJsonFile(fileName, content);
    case SourceFormat::usfm:
        return readUsfmFile(fileName, content);
    case SourceFormat::usfx:
        return readUsfx(fileName, content);
    case SourceFormat::usx:
        return readUsxFile(fileName, content);
    case SourceFormat::yaml:
        return readYaml(fileName, content);
    default:
        return readVerseLines(fileName, std::move(content));
    }
}

SourceBible named(SourceBible bible, SourceFormat format)
{
    bible.format = formatName(format);
    return bible;
}

SourceBible readContent(const std::string& fileName, std::string content, const ReadOptions& options)
{
    const SourceFormat format = formatOf(content, fileName, options);
    return named(readAs(format, fileName, std::move(content), options), format);
}

void refuseBook(const std::string& fileName, const ReadOptions& options)
{
    if (!options.book.empty())
        throw CBuildError(message("%s: --book is for a file of plain lines", fileName));
}

bool mayBeSqlite(const ReadOptions& options)
{
    return options.format == SourceFormat::detected || options.format == SourceFormat::sqlite;
}

} // namespace

const char* formatName(SourceFormat format)
{
    switch (format) {
    case SourceFormat::detected:
        return "";
    case SourceFormat::beblia:
        return "Beblia XML";
    case SourceFormat::ces:
        return "CES XML";
    case SourceFormat::json:
        return "JSON";
    case SourceFormat::opensong:
        return "OpenSong";
    case SourceFormat::osis:
        return "OSIS";
    case SourceFormat::sqlite:
        return "SQLite";
    case SourceFormat::usfm:
        return "USFM";
    case SourceFormat::usfx:
        return "USFX";
    case SourceFormat::usx:
        return "USX";
    case SourceFormat::yaml:
        return "YAML";
    case SourceFormat::zefania:
        return "Zefania XML";
    case SourceFormat::plainLines:
        return tr("plain text");
    case SourceFormat::verseLines:
        return tr("lines of verses");
    }
    return "";
}

void sayRecognised(SourceBible& bible, const std::string& encoding)
{
    if (!encoding.empty())
        bible.findings.say(translatable("encoding"), message("%s, recognised", encoding));
}

SourceFormat detectFormat(std::string_view utf8, const std::string& fileName)
{
    const std::string_view content = trimmedStart(utf8);
    if (content.starts_with('\\'))
        return SourceFormat::usfm;
    if (isJson(content))
        return SourceFormat::json;
    if (isYaml(content))
        return SourceFormat::yaml;
    if (!content.starts_with('<'))
        return !beginsWithHeader(content) && !beginsAsVerseLines(content) && isPlainLines(content, fileName)
                   ? SourceFormat::plainLines
                   : SourceFormat::verseLines;
    const std::string root = lower(rootElement(content));
    if (root == "cesdoc")
        return SourceFormat::ces;
    if (root == "osis")
        return SourceFormat::osis;
    if (root == "xmlbible")
        return SourceFormat::zefania;
    if (root == "usfx")
        return SourceFormat::usfx;
    if (root == "usx")
        return SourceFormat::usx;
    if (root == "bible")
        return firstElementOf(content, {"b", "book", "testament"}) == "b" ? SourceFormat::opensong
                                                                          : SourceFormat::beblia;
    throw CBuildError(
        message("%s: is XML of an unknown format (its root element is %s)", fileName, inQuotes(root)));
}

SourceBible readSourceContent(const std::string& fileName, const std::string& bytes,
                              const ReadOptions& options)
{
    if (options.format == SourceFormat::sqlite || (mayBeSqlite(options) && isSqliteContent(bytes))) {
        refuseBook(fileName, options);
        return named(readSqlite(fileName, bytes), SourceFormat::sqlite);
    }
    std::string recognised;
    SourceBible bible =
        readContent(fileName, decodedText(bytes, fileName, options.encoding, &recognised), options);
    sayRecognised(bible, recognised);
    return bible;
}

SourceBible readSingleFile(const std::string& path, const ReadOptions& options)
{
    if (options.format == SourceFormat::sqlite || (mayBeSqlite(options) && isSqliteFile(path))) {
        refuseBook(path, options);
        return named(readSqlite(path), SourceFormat::sqlite);
    }
    std::string recognised;
    SourceBible bible = readContent(path, readText(path, options.encoding, &recognised), options);
    sayRecognised(bible, recognised);
    return bible;
}

} // namespace Kedrin::ModTool
