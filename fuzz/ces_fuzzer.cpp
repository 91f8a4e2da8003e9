#include "ces_reader.h"
#include "source_walk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::walkSource(data, size, [](const std::string& text) { return Kedrin::ModTool::readCes("f", text); });
    return 0;
}
