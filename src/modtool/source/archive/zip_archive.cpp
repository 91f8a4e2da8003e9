#include "zip_archive.h"

#include "errors.h"
#include "input_file.h"
#include "messages.h"
#include "module_format.h"

#include <zip.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string_view>

namespace Kedrin::ModTool {

namespace {

constexpr zip_int64_t maxEntries = 10000;

/// An open archive. Closing it writes nothing.
class CZip
{
public:
    explicit CZip(const std::string& fileName) : m_fileName(fileName), m_archive(nullptr, &zip_discard)
    {
        int error = 0;
        m_archive.reset(zip_open(fileName.c_str(), ZIP_RDONLY, &error));
        if (!m_archive) {
            zip_error_t described;
            zip_error_init_with_code(&described, error);
            const std::string text = zip_error_strerror(&described);
            zip_error_fini(&described);
            fail(text);
        }
    }

    std::vector<ArchivedFile> files()
    {
        const zip_int64_t count = zip_get_num_entries(m_archive.get(), 0);
        if (count > maxEntries)
            throw CBuildError(message("%s: contains more than %s files", m_fileName, maxEntries));
        std::vector<ArchivedFile> files;
        for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i)
            if (std::string name = nameOf(i); !name.ends_with('/') && !isHidden(name))
                files.push_back({std::move(name), contentOf(i)});
        std::stable_sort(files.begin(), files.end(),
                         [](const ArchivedFile& a, const ArchivedFile& b) { return a.name < b.name; });
        return files;
    }

private:
    [[noreturn]] void fail(const std::string& what) const
    {
        throw CBuildError(message("%s: not a valid zip archive: %s", m_fileName, what));
    }

    /// In UTF-8, without control characters.
    std::string nameOf(zip_uint64_t index) const
    {
        const char* name = zip_get_name(m_archive.get(), index, ZIP_FL_ENC_GUESS);
        if (!name)
            fail(zip_strerror(m_archive.get()));
        std::string shown = name;
        std::replace_if(
            shown.begin(), shown.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, '?');
        return shown;
    }

    static bool isHidden(std::string_view name)
    {
        if (name.starts_with("__MACOSX/"))
            return true;
        const std::filesystem::path path(name);
        return std::any_of(path.begin(), path.end(), [](const std::filesystem::path& part) {
            return part.string().starts_with('.') && part != "." && part != "..";
        });
    }

    std::string contentOf(zip_uint64_t index)
    {
        const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(
            zip_fopen_index(m_archive.get(), index, 0), &zip_fclose);
        if (!file)
            fail(zip_strerror(m_archive.get()));
        std::string content;
        std::array<char, 65536> block{};
        for (;;) {
            const zip_int64_t read = zip_fread(file.get(), block.data(), block.size());
            if (read < 0)
                fail(zip_file_strerror(file.get()));
            if (read == 0)
                return content;
            m_byteCount += static_cast<std::uint64_t>(read);
            if (m_byteCount > maxSourceBytes)
                throw CBuildError(message("%s: contains more than 64 MiB", m_fileName));
            content.append(block.data(), static_cast<std::size_t>(read));
        }
    }

    const std::string& m_fileName;
    std::unique_ptr<zip_t, void (*)(zip_t*)> m_archive;
    std::uint64_t m_byteCount = 0; ///< unpacked so far
};

} // namespace

bool isZipFile(const std::string& fileName)
{
    constexpr std::string_view local = "PK\3\4", empty = "PK\5\6";
    const ut::CInputFile file(fileName.c_str());
    std::array<char, local.size()> bytes{};
    if (!file.isOpen() || file.readAt(0, bytes.data(), bytes.size()) != bytes.size())
        return false;
    const std::string_view head(bytes.data(), bytes.size());
    return head == local || head == empty;
}

std::vector<ArchivedFile> filesOfZip(const std::string& fileName)
{
    const ut::CInputFile file(fileName.c_str());
    if (!file.isOpen())
        throw CBuildError(message("%s: cannot be opened", fileName));
    if (file.size() > maxSourceBytes)
        throw CBuildError(message("%s: is larger than 64 MiB", fileName));
    return CZip(fileName).files();
}

} // namespace Kedrin::ModTool
