#include "source_walk.h"
#include "sqlite_reader.h"
#include "temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const test_support::TempFolder folder; // the library opens files by their names
    if (size > fuzz::maxSourceFuzzBytes)
        return 0;
    const std::string file = folder.write("f.db", std::string(reinterpret_cast<const char*>(data), size));
    fuzz::walkBible([&] { return Kedrin::ModTool::readSqlite(file); });
    return 0;
}
