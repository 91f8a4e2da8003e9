#include "read_source.h"
#include "source_walk.h"
#include "temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const test_support::TempFolder folder; // the library opens files by their names
    if (size > fuzz::maxSourceFuzzBytes)
        return 0;
    const std::string file = folder.write("f.zip", std::string(reinterpret_cast<const char*>(data), size));
    fuzz::walkBible([&] { return Kedrin::ModTool::readSourceFile(file, {}); });
    return 0;
}
