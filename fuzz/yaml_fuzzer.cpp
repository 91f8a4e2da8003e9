#include "source_walk.h"
#include "yaml_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::walkSource(data, size,
                     [](const std::string& text) { return Kedrin::ModTool::readYaml("f", text); });
    return 0;
}
