#include "source_folder.h"

#include "ascii.h"
#include "errors.h"
#include "json_folder.h"
#include "messages.h"
#include "plain_reader.h"
#include "root_element.h"
#include "source_files.h"
#include "sqlite_database.h"
#include "usfm_reader.h"
#include "usx_reader.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace Kedrin::ModTool {

namespace {

using Files = std::vector<CSourceFile>;

/// How the files of a format are recognised.
struct BookFormat
{
    SourceFormat format;
    std::string_view extensions; ///< with spaces around each
    bool (*begins)(std::string_view head);
};

constexpr BookFormat formats[] = {
    {SourceFormat::usfm, " .usfm .sfm .ptx .scp ",
     [](std::string_view head) { return head.starts_with("\\id"); }},
    {SourceFormat::usx, " .usx ", [](std::string_view head) { return rootElement(head) == "usx"; }}};

bool hasExtension(const BookFormat& format, const CSourceFile& file)
{
    const std::string extension = lower(std::filesystem::path(file.path()).extension().string());
    return !extension.empty() && format.extensions.find(' ' + extension + ' ') != std::string_view::npos;
}

/// The beginning of a file without a byte order mark.
std::string headOf(const CSourceFile& file)
{
    constexpr std::string_view mark = "\uFEFF";
    const std::string head = file.head();
    return head.substr(head.starts_with(mark) ? mark.size() : 0);
}

/// Whether a regular file begins as those of the format do.
bool beginsAs(const BookFormat& format, const CSourceFile& file) { return format.begins(headOf(file)); }

struct Found
{
    SourceFormat format;
    Files files;
};

/// The files of the first format that has any; otherwise none.
/// @param wanted  SourceFormat::detected: any format
Found booksIn(const Files& all, SourceFormat wanted)
{
    for (const auto isOf : {&hasExtension, &beginsAs})
        for (const BookFormat& format : formats) {
            Found found{format.format, {}};
            if (wanted == SourceFormat::detected || wanted == format.format)
                std::copy_if(all.begin(), all.end(), std::back_inserter(found.files),
                             [&](const CSourceFile& file) { return isOf(format, file); });
            if (!found.files.empty())
                return found;
        }
    return {wanted, {}};
}

template <typename Reader>
SourceBible readWith(const std::string& source, const Files& files, const std::string& encoding)
{
    Reader reader;
    std::uint64_t byteCount = 0;
    for (const CSourceFile& file : files) {
        const std::string content = file.text(encoding);
        addBytes(byteCount, content.size(), source);
        reader.read(file.path(), content, file.name());
    }
    return reader.finish(source);
}

/// Reads the files of USFM or USX, in Protestant order unless all their names begin with a number.
SourceBible readBooks(const std::string& source, const Found& found, const std::string& encoding)
{
    SourceBible bible = found.format == SourceFormat::usfm
                            ? readWith<CUsfmReader>(source, found.files, encoding)
                            : readWith<CUsxReader>(source, found.files, encoding);
    if (!std::all_of(found.files.begin(), found.files.end(), beginsWithDigit))
        orderBooks(bible, BookOrder::protestant);
    bible.format = formatName(found.format);
    return bible;
}

/// Whether a file is to be read as plain lines; --from takes them all.
bool isPlainFile(const CSourceFile& file, const std::string& content)
{
    const std::size_t begin = std::min(content.find_first_not_of(whiteSpace), content.size());
    const bool isMarkedUp = std::string_view("<\\{").find(content[begin]) != std::string_view::npos;
    return begin != content.size() && !isMarkedUp && isPlainLines(content, file.path());
}

/// Names files that were not read, the first of them each on a line.
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

/// Reads the files that are plain lines; the others are named in the report.
/// @returns nullopt if there are none
std::optional<SourceBible> readPlainFiles(const std::string& source, const Files& files,
                                          const ReadOptions& options)
{
    CPlainReader reader;
    std::uint64_t byteCount = 0;
    std::string recognised;
    std::vector<std::string> others;
    bool hasOne = false;
    for (const CSourceFile& file : files) {
        if (!file.isRegular())
            continue;
        std::string ofFile;
        const std::string content = file.text(options.encoding, &ofFile);
        addBytes(byteCount, content.size(), source);
        if (!isPlainFile(file, content)) {
            others.push_back(file.name());
            continue;
        }
        hasOne = true;
        reader.read(file.path(), content, {"", file.name(), options.skipUnknownBooks});
        recognised = recognised.empty() ? ofFile : recognised;
    }
    if (!hasOne)
        return std::nullopt;
    SourceBible bible = reader.finish(source);
    sayRecognised(bible, recognised);
    sayOthers(bible, others);
    bible.format = formatName(SourceFormat::plainLines);
    return bible;
}

/// Reads USFM, USX or JSON, whichever is found first.
/// @returns nullopt if there are no such files
std::optional<SourceBible> readBookFiles(const std::string& source, const Files& files,
                                         const ReadOptions& options)
{
    const bool isAny = options.format == SourceFormat::detected;
    if (options.format == SourceFormat::json || options.format == SourceFormat::plainLines)
        return options.format == SourceFormat::json
                   ? std::optional(readJsonFiles(source, files, options.encoding))
                   : std::nullopt;
    if (const Found found = booksIn(files, options.format); !found.files.empty())
        return readBooks(source, found, options.encoding);
    if (isAny && hasJsonFiles(files))
        return readJsonFiles(source, files, options.encoding);
    return std::nullopt;
}

/// Reads plain lines, the last of the formats that are looked for.
SourceBible readPlainOrFail(const std::string& source, const Files& files, const ReadOptions& options)
{
    const bool isPlain = options.format == SourceFormat::plainLines;
    if (isPlain || options.format == SourceFormat::detected)
        if (auto bible = readPlainFiles(source, files, options))
            return std::move(*bible);
    throw CBuildError(
        isPlain ? message("%s: contains no file of plain lines", source)
                : message("%s: contains no USFM or USX file (*.usfm, *.sfm, *.ptx, *.scp, *.usx)", source));
}

bool isReadFromFolders(SourceFormat format)
{
    return format == SourceFormat::detected || format == SourceFormat::usfm || format == SourceFormat::usx ||
           format == SourceFormat::json || format == SourceFormat::plainLines;
}

void refuseBook(const std::string& source, const ReadOptions& options)
{
    if (!options.book.empty())
        throw CBuildError(message("%s: --book is for a file of plain lines", source));
}

} // namespace

SourceBible readSourceFolder(const std::string& folder, const ReadOptions& options)
{
    if (!isReadFromFolders(options.format))
        throw CBuildError(
            message("%s: is a folder; only USFM, USX, JSON and plain lines are read from folders", folder));
    refuseBook(folder, options);
    const Files files = filesOfFolder(folder);
    if (auto bible = readBookFiles(folder, files, options))
        return std::move(*bible);
    return readPlainOrFail(folder, files, options);
}

SourceBible readSourceArchive(const std::string& fileName, const ReadOptions& options)
{
    const Files files = filesOfArchive(fileName);
    if (files.empty())
        throw CBuildError(message("%s: contains no files", fileName));
    if (files.size() == 1)
        return readSourceContent(files.front().path(), *files.front().content(), options);
    if (isReadFromFolders(options.format)) {
        refuseBook(fileName, options);
        if (auto bible = readBookFiles(fileName, files, options))
            return std::move(*bible);
    }
    Files whole;
    std::copy_if(files.begin(), files.end(), std::back_inserter(whole), [](const CSourceFile& file) {
        const std::string head = headOf(file);
        return trimmedStart(head).starts_with('<') || isSqliteContent(head);
    });
    const bool isOfFolders = isReadFromFolders(options.format) && options.format != SourceFormat::detected;
    if (whole.size() == 1 && !isOfFolders)
        return readSourceContent(whole.front().path(), *whole.front().content(), options);
    if (whole.size() > 1 || !isReadFromFolders(options.format))
        throw CBuildError(message(
            "%s: contains several files; only USFM, USX, JSON and plain lines are read from more than one",
            fileName));
    return readPlainOrFail(fileName, files, options);
}

} // namespace Kedrin::ModTool
