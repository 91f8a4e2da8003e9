#include "window_folder.h"

#include "bench_module.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>

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

} // namespace

void writeWindowFolder(const fs::path& folder)
{
    const fs::path bibles = folder / "modules" / "bibles";
    fs::create_directories(bibles / "a");
    const CBenchModule module((bibles / "a").string());
    fs::copy(bibles / "a", bibles / "b");
    std::ofstream(bibles / "b" / "CompactText.bin", std::ios::binary)
        << withOtherSigns(contentOf(bibles / "a" / "CompactText.bin"));
    std::ofstream(bibles / "b" / "_Info_.txt") << "Other\n";
}

void writeManyModules(const fs::path& folder, const fs::path& module, unsigned int moduleCount)
{
    for (unsigned int i = 0; i < moduleCount; ++i) {
        const std::string name = "module" + std::to_string(i);
        const fs::path linked = folder / "modules" / "bibles" / name;
        fs::create_directories(linked);
        for (const fs::directory_entry& file : fs::directory_iterator(module))
            if (file.path().filename() != "_Info_.txt")
                fs::create_hard_link(file, linked / file.path().filename());
        std::ofstream(linked / "_Info_.txt") << name << '\n';
    }
}
