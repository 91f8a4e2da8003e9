#include "source_folder.h"

#include "ascii.h"
#include "errors.h"
#include "json_folder.h"
#include "messages.h"
#include "module_format.h"
#include "plain_reader.h"
#include "root_element.h"
#include "text_input.h"
#include "usfm_reader.h"
#include "usx_reader.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

namespace {

/// How the files of a format are recognised.
struct Files
{
    SourceFormat format;
    std::string_view extensions; ///< with spaces around each
    bool (*begins)(std::string_view head);
};

constexpr Files formats[] = {
    {SourceFormat::usfm, " .usfm .sfm .ptx .scp ",
     [](std::string_view head) { return head.starts_with("\\id"); }},
    {SourceFormat::usx, " .usx ", [](std::string_view head) { return rootElement(head) == "usx"; }}};

/// Archives contain files whose names begin with a dot beside the visible ones.
bool isHidden(const fs::path& file) { return file.filename().string().starts_with('.'); }

bool hasExtension(const Files& format, const fs::path& file)
{
    const std::string extension = lower(file.extension().string());
    return !extension.empty() && format.extensions.find(' ' + extension + ' ') != std::string_view::npos;
}

/// Whether a regular file begins as those of the format do, perhaps after a byte order mark.
bool beginsAs(const Files& format, const fs::path& file)
{
    constexpr std::string_view mark = "\uFEFF";
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored))
        return false;
    std::array<char, 1024> bytes{};
    std::ifstream in(file, std::ios::binary);
    in.read(bytes.data(), bytes.size());
    std::string_view head(bytes.data(), static_cast<std::size_t>(in.gcount()));
    head.remove_prefix(head.starts_with(mark) ? mark.size() : 0);
    return format.begins(head);
}

/// The files of a folder that are not hidden, in the order of their names.
std::vector<fs::path> visibleFiles(const std::string& folder)
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

struct Found
{
    SourceFormat format;
    std::vector<fs::path> files;
};

/// The files of the first format that has any; otherwise none.
/// @param wanted  SourceFormat::detected: any format
Found filesOf(const std::string& folder, SourceFormat wanted)
{
    const std::vector<fs::path> all = visibleFiles(folder);
    for (const auto isOf : {&hasExtension, &beginsAs})
        for (const Files& format : formats) {
            Found found{format.format, {}};
            if (wanted == SourceFormat::detected || wanted == format.format)
                std::copy_if(all.begin(), all.end(), std::back_inserter(found.files),
                             [&](const fs::path& file) { return isOf(format, file); });
            if (!found.files.empty())
                return found;
        }
    return {wanted, {}};
}

bool beginsWithDigit(const fs::path& file) { return isAsciiDigit(file.filename().string().front()); }

template <typename Reader>
SourceBible readFiles(const std::string& folder, const std::vector<fs::path>& files,
                      const std::string& encoding)
{
    Reader reader;
    std::uint64_t byteCount = 0;
    for (const fs::path& file : files) {
        const std::string content = readText(file.string(), encoding);
        byteCount += content.size();
        if (byteCount > maxSourceBytes)
            throw CBuildError(message("%s: contains more than 64 MiB", folder));
        reader.read(file.string(), content, file.filename().string());
    }
    return reader.finish(folder);
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
    for (const fs::path& file : visibleFiles(folder)) {
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

/// Reads the files of USFM or USX, in Protestant order unless all their names begin with a number.
SourceBible readBooks(const std::string& folder, const Found& found, const std::string& encoding)
{
    SourceBible bible = found.format == SourceFormat::usfm
                            ? readFiles<CUsfmReader>(folder, found.files, encoding)
                            : readFiles<CUsxReader>(folder, found.files, encoding);
    if (!std::all_of(found.files.begin(), found.files.end(), beginsWithDigit))
        orderBooks(bible, BookOrder::protestant);
    return bible;
}

bool isReadFromFolders(SourceFormat format)
{
    return format == SourceFormat::detected || format == SourceFormat::usfm || format == SourceFormat::usx ||
           format == SourceFormat::json || format == SourceFormat::plainLines;
}

} // namespace

SourceBible readSourceFolder(const std::string& folder, const ReadOptions& options)
{
    const bool isAny = options.format == SourceFormat::detected;
    const bool isPlain = options.format == SourceFormat::plainLines;
    if (!isReadFromFolders(options.format))
        throw CBuildError(
            message("%s: is a folder; only USFM, USX, JSON and plain lines are read from folders", folder));
    if (!options.book.empty())
        throw CBuildError(message("%s: --book is for a file of plain lines", folder));
    if (options.format == SourceFormat::json)
        return readJsonFolder(folder, options.encoding);
    if (!isPlain)
        if (const Found found = filesOf(folder, options.format); !found.files.empty())
            return readBooks(folder, found, options.encoding);
    if (isAny && hasJsonFiles(folder))
        return readJsonFolder(folder, options.encoding);
    if (isAny || isPlain)
        if (auto bible = readPlainFolder(folder, options.encoding))
            return std::move(*bible);
    throw CBuildError(
        isPlain ? message("%s: contains no file of plain lines", folder)
                : message("%s: contains no USFM or USX file (*.usfm, *.sfm, *.ptx, *.scp, *.usx)", folder));
}

} // namespace Kedrin::ModTool
