#include "plain_reader.h"
#include "source_walk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    for (const char* book : {"", "Jude"})
        fuzz::walkSource(data, size, [&](const std::string& text) {
            Kedrin::ModTool::CPlainReader reader;
            reader.read("f", text, {book, ""});
            return reader.finish("f");
        });
    return 0;
}
