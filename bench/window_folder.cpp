#include "window_folder.h"

#include "bench_module.h"
#include "temp_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& file)
{
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

/// The records of CompactText.bin with '.' replaced by '!' in the verses; the two length bytes are unchanged.
std::string withOtherSigns(std::string records)
{
    for (std::size_t at = 0; at + 2 <= records.size();) {
        const std::size_t byteCount =
            static_cast<unsigned char>(records[at]) + 256u * static_cast<unsigned char>(records[at + 1]);
        const auto verse = records.begin() + static_cast<std::ptrdiff_t>(at + 2);
        std::replace(verse, verse + static_cast<std::ptrdiff_t>(byteCount), '.', '!');
        at += 2 + byteCount;
    }
    return records;
}

std::string makeFolder(const test_support::TempFolder& folder)
{
    const fs::path module = CBenchModule::get().folder();
    const fs::path bibles = folder.path() / "modules" / "bibles";
    fs::create_directories(bibles);
    fs::create_directory_symlink(module, bibles / "a");
    fs::copy(module, bibles / "b");
    std::ofstream(bibles / "b" / "CompactText.bin", std::ios::binary)
        << withOtherSigns(contentOf(module / "CompactText.bin"));
    std::ofstream(bibles / "b" / "_Info_.txt") << "Other\n";
    return folder.path().string();
}

} // namespace

const std::string& windowFolder()
{
    CBenchModule::get(); // must outlive the folder that links to it
    static const test_support::TempFolder folder;
    static const std::string path = makeFolder(folder);
    return path;
}
