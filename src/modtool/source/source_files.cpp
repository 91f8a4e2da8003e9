#include "source_files.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"
#include "module_format.h"
#include "text_input.h"
#include "zip_archive.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace Kedrin::ModTool {

namespace fs = std::filesystem;

CSourceFile::CSourceFile(const fs::path& path) : m_path(path.string()) {}

CSourceFile::CSourceFile(const std::string& archive, const std::string& name, std::string content)
    : m_path(archive + '/' + name),
      m_content(std::make_shared<const std::string>(std::move(content)))
{}

bool CSourceFile::isRegular() const
{
    std::error_code ignored;
    return m_content || fs::is_regular_file(m_path, ignored);
}

std::string CSourceFile::head() const
{
    constexpr std::size_t headBytes = 1024;
    if (m_content)
        return m_content->substr(0, headBytes);
    if (!isRegular())
        return "";
    std::array<char, headBytes> bytes{};
    std::ifstream in(m_path, std::ios::binary);
    in.read(bytes.data(), bytes.size());
    return {bytes.data(), static_cast<std::size_t>(in.gcount())};
}

std::string CSourceFile::text(const std::string& encoding, std::string* recognised) const
{
    return m_content ? decodedText(*m_content, m_path, encoding, recognised)
                     : readText(m_path, encoding, recognised);
}

std::vector<CSourceFile> filesOfFolder(const std::string& folder)
{
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator file(folder, error), end; !error && file != end; file.increment(error))
        if (!file->path().filename().string().starts_with('.'))
            paths.push_back(file->path());
    if (error)
        throw CBuildError(message("%s: cannot be read", folder));
    std::sort(paths.begin(), paths.end());
    return {paths.begin(), paths.end()};
}

std::vector<CSourceFile> filesOfArchive(const std::string& fileName)
{
    std::vector<CSourceFile> files;
    for (ArchivedFile& file : filesOfZip(fileName))
        files.emplace_back(fileName, file.name, std::move(file.content));
    return files;
}

void addBytes(std::uint64_t& byteCount, std::size_t added, const std::string& source)
{
    byteCount += added;
    if (byteCount > maxSourceBytes)
        throw CBuildError(message("%s: contains more than 64 MiB", source));
}

bool beginsWithDigit(const CSourceFile& file)
{
    const std::string name = file.name();
    return !name.empty() && isAsciiDigit(name.front());
}

} // namespace Kedrin::ModTool
