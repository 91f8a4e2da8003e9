#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

/// Passes one file to the fuzzer. An exception is reported with the name of the file.
bool replay(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(in), {});
    if (!in.is_open() || in.bad()) {
        std::fprintf(stderr, "%s: cannot be read\n", path.c_str());
        return false;
    }
    try {
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        return true;
    } catch (const std::exception& ex) {
        std::fprintf(stderr, "%s: %s\n", path.c_str(), ex.what());
    } catch (...) {
        std::fprintf(stderr, "%s: an exception of unknown type\n", path.c_str());
    }
    return false;
}

} // namespace

/// Replaces libFuzzer: replays each of the given files, and of the files in the given folders, once.
/// @returns 0 if all succeeded; 1 if one failed or there was none
int main(int argc, char* argv[])
{
    int replayed = 0;
    bool sound = true;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            sound = replay(argv[i]) && sound;
            ++replayed;
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(argv[i])) {
            sound = replay(entry.path()) && sound;
            ++replayed;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    return sound && replayed > 0 ? 0 : 1;
}
