#include "source_format.h"

#include "ascii.h"
#include "beblia_reader.h"
#include "element_search.h"
#include "errors.h"
#include "json_document.h"
#include "json_folder.h"
#include "json_reader.h"
#include "messages.h"
#include "module_format.h"
#include "opensong_reader.h"
#include "osis_reader.h"
#include "plain_reader.h"
#include "root_element.h"
#include "text_input.h"
#include "usfm_reader.h"
#include "verse_line_reader.h"
#include "zefania_reader.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

/// Archives contain files whose names begin with a dot beside the visible ones.
bool isHidden(const fs::path& file) { return file.filename().string().starts_with('.'); }

bool hasUsfmExtension(const fs::path& file)
{
    const std::string extension = lower(file.extension().string());
    return extension == ".usfm" || extension == ".sfm" || extension == ".ptx" || extension == ".scp";
}

/// Whether a regular file begins with `\id`, perhaps after a byte order mark.
bool beginsAsUsfm(const fs::path& file)
{
    constexpr std::string_view mark = "\uFEFF", id = "\\id";
    std::error_code ignored;
    std::array<char, mark.size() + id.size()> bytes{};
    if (!fs::is_regular_file(file, ignored) ||
        !std::ifstream(file, std::ios::binary).read(bytes.data(), bytes.size()))
        return false;
    std::string_view head(bytes.data(), bytes.size());
    head.remove_prefix(head.starts_with(mark) ? mark.size() : 0);
    return head.starts_with(id);
}

/// The files of a folder that are not hidden, in the order of their names.
std::vector<fs::path> filesIn(const std::string& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
        if (!isHidden(file->path()))
            files.push_back(file->path());
    if (error)
        throw CBuildError(message("%s: cannot be read", folder));
    std::sort(files.begin(), files.end());
    return files;
}

/// The files with a USFM extension or, if there are none, those that begin like USFM.
std::vector<fs::path> usfmFiles(const std::string& folder)
{
    const std::vector<fs::path> all = filesIn(folder);
    std::vector<fs::path> files;
    std::copy_if(all.begin(), all.end(), std::back_inserter(files), hasUsfmExtension);
    if (files.empty())
        std::copy_if(all.begin(), all.end(), std::back_inserter(files), beginsAsUsfm);
    return files;
}

bool beginsWithDigit(const fs::path& file) { return isAsciiDigit(file.filename().string().front()); }

SourceBible readUsfmFolder(const std::string& folder, const std::vector<fs::path>& files,
                           const std::string& encoding)
{
    CUsfmReader reader;
    std::uint64_t byteCount = 0;
    for (const fs::path& file : files) {
        const std::string content = readText(file.string(), encoding);
        byteCount += content.size();
        if (byteCount > maxSourceBytes)
            throw CBuildError(message("%s: contains more than 64 MiB", folder));
        reader.read(file.string(), content, file.filename().string());
    }
    SourceBible bible = reader.finish(folder);
    if (!std::all_of(files.begin(), files.end(), beginsWithDigit))
        orderBooks(bible, BookOrder::protestant);
    return bible;
}

void sayRecognised(SourceBible& bible, const std::string& encoding)
{
    if (!encoding.empty())
        bible.findings.say(translatable("encoding"), message("%s, recognised", encoding));
}

/// Whether a file of a folder is to be read as plain lines; --from takes them all.
bool isPlainFile(const fs::path& file, const std::string& content)
{
    const std::size_t begin = std::min(content.find_first_not_of(whiteSpace), content.size());
    const bool isMarkedUp = std::string_view("<\\{").find(content[begin]) != std::string_view::npos;
    return begin != content.size() && !isMarkedUp && isPlainLines(content, file.string());
}

/// Names files of a folder that were not read, the first of them each on a line.
void sayOthers(SourceBible& bible, const std::vector<std::string>& names)
{
    constexpr std::size_t shown = 20;
    for (std::size_t i = 0; i < names.size() && i < shown; ++i)
        bible.findings.say(translatable("left out"),
                           message("the file %s, which contains no verses", names[i]));
    if (names.size() > shown)
        bible.findings.say(translatable("left out"), counted(names.size() - shown, "more file without verses",
                                                             "more files without verses"));
}

/// Reads the files of a folder that are plain lines; the others are named in the report.
/// @returns nothing where there is none
std::optional<SourceBible> readPlainFolder(const std::string& folder, const std::string& encoding)
{
    CPlainReader reader;
    std::uint64_t byteCount = 0;
    std::string recognised;
    std::vector<std::string> others;
    bool hasOne = false;
    std::error_code ignored;
    for (const fs::path& file : filesIn(folder)) {
        if (!fs::is_regular_file(file, ignored))
            continue;
        std::string ofFile;
        const std::string content = readText(file.string(), encoding, &ofFile);
        byteCount += content.size();
        if (byteCount > maxSourceBytes)
            throw CBuildError(message("%s: contains more than 64 MiB", folder));
        if (!isPlainFile(file, content)) {
            others.push_back(file.filename().string());
            continue;
        }
        hasOne = true;
        reader.read(file.string(), content, {"", file.filename().string()});
        recognised = recognised.empty() ? ofFile : recognised;
    }
    if (!hasOne)
        return std::nullopt;
    SourceBible bible = reader.finish(folder);
    sayRecognised(bible, recognised);
    sayOthers(bible, others);
    return bible;
}

SourceBible readFolder(const std::string& folder, const ReadOptions& options)
{
    if (!options.book.empty())
        throw CBuildError(message("%s: --book is for a file of plain lines", folder));
    if (options.format == SourceFormat::json)
        return readJsonFolder(folder, options.encoding);
    const bool mayBeUsfm = options.format != SourceFormat::plainLines;
    if (const auto files = mayBeUsfm ? usfmFiles(folder) : std::vector<fs::path>(); !files.empty())
        return readUsfmFolder(folder, files, options.encoding);
    if (options.format == SourceFormat::detected && hasJsonFiles(folder))
        return readJsonFolder(folder, options.encoding);
    if (options.format != SourceFormat::usfm)
        if (auto bible = readPlainFolder(folder, options.encoding))
            return std::move(*bible);
    throw CBuildError(mayBeUsfm ? message("%s: contains no USFM file (*.usfm, *.sfm, *.ptx, *.scp)", folder)
                                : message("%s: contains no file of plain lines", folder));
}

SourceBible readUsfmFile(const std::string& fileName, const std::string& content)
{
    CUsfmReader reader;
    reader.read(fileName, content);
    return reader.finish(fileName);
}

SourceBible readJsonFile(const std::string& fileName, const std::string& content)
{
    CJsonReader reader;
    reader.read(fileName, content);
    return reader.finish(fileName);
}

SourceBible readPlainFile(const std::string& fileName, const std::string& content, const std::string& book)
{
    CPlainReader reader;
    reader.read(fileName, content, {book, ""});
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

SourceBible readContent(const std::string& fileName, std::string content, const ReadOptions& options)
{
    switch (formatOf(content, fileName, options)) {
    case SourceFormat::beblia:
        return readBeblia(fileName, content);
    case SourceFormat::opensong:
        return readOpenSong(fileName, content);
    case SourceFormat::plainLines:
        return readPlainFile(fileName, content, options.book);
    case SourceFormat::osis:
        return readOsis(fileName, content);
    case SourceFormat::zefania:
        return readZefania(fileName, content);
    case SourceFormat::json:
        return readJsonFile(fileName, content);
    case SourceFormat::usfm:
        return readUsfmFile(fileName, content);
    default:
        return readVerseLines(fileName, std::move(content));
    }
}

/// Missing titles are taken from the file name or from a longer title.
void nameAfterFile(SourceInfo& info, const std::string& path, bool isFolder)
{
    const fs::path file = fs::path(path).has_filename() ? fs::path(path) : fs::path(path).parent_path();
    if (isBlank(info.fullTitle))
        info.fullTitle = (isFolder ? file.filename() : file.stem()).string();
    if (isBlank(info.shortTitle))
        info.shortTitle = info.fullTitle;
    if (isBlank(info.abbreviatedTitle))
        info.abbreviatedTitle = info.shortTitle;
}

} // namespace

SourceFormat detectFormat(std::string_view utf8, const std::string& fileName)
{
    const std::string_view content = trimmedStart(utf8);
    if (content.starts_with('\\'))
        return SourceFormat::usfm;
    if (isJson(content))
        return SourceFormat::json;
    if (!content.starts_with('<'))
        return !beginsAsVerseLines(content) && isPlainLines(content, fileName) ? SourceFormat::plainLines
                                                                               : SourceFormat::verseLines;
    const std::string root = lower(rootElement(content));
    if (root == "osis")
        return SourceFormat::osis;
    if (root == "xmlbible")
        return SourceFormat::zefania;
    if (root == "bible")
        return firstElementOf(content, {"b", "book", "testament"}) == "b" ? SourceFormat::opensong
                                                                          : SourceFormat::beblia;
    throw CBuildError(
        message("%s: is XML of an unknown format (its root element is %s)", fileName, inQuotes(root)));
}

SourceBible readSourceFile(const std::string& path, const ReadOptions& options)
{
    std::error_code ignored;
    const bool isFolder = fs::is_directory(path, ignored);
    if (isFolder && options.format != SourceFormat::detected && options.format != SourceFormat::usfm &&
        options.format != SourceFormat::plainLines && options.format != SourceFormat::json)
        throw CBuildError(
            message("%s: is a folder; only USFM, JSON and plain lines are read from folders", path));
    std::string recognised;
    SourceBible bible = isFolder ? readFolder(path, options)
                                 : readContent(path, readText(path, options.encoding, &recognised), options);
    sayRecognised(bible, recognised);
    nameAfterFile(bible.info, path, isFolder);
    orderBooks(bible, options.order);
    return bible;
}

} // namespace Kedrin::ModTool
