// Catalogues of SWORD repositories: whatever is sent, it is descriptions or an error of the tool.

#include "errors.h"
#include "repository_catalogue.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace Kedrin::ModTool;
    constexpr std::size_t enough = 1 << 16; // longer input finds nothing new
    if (size > enough)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const SwordDescription& description : readSwordConfiguration(bytes))
        readSwordConfiguration(swordConfiguration(description));
    try {
        for (const std::string& file : readSwordCatalogue(bytes))
            readSwordConfiguration(file);
    } catch (const CToolError&) {
    }
    return 0;
}
