#include "source_walk.h"
#include "usx_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::walkSource(data, size, [](const std::string& text) {
        Kedrin::ModTool::CUsxReader reader;
        reader.read("f", text);
        return reader.finish("f");
    });
    return 0;
}
