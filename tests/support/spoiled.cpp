#include "spoiled.h"

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace test_support {

std::vector<NamedPath> unopenableFiles(const TempFolder& folder)
{
    std::filesystem::create_directories(folder.path() / "directory");
    std::filesystem::create_symlink(folder.path() / "nowhere", folder.path() / "link-to-nothing");
    std::filesystem::create_symlink(folder.path() / "link-to-itself", folder.path() / "link-to-itself");
    const std::string plainFile = folder.write("file", "2 0 1\n");
    if (::mkfifo(folder.file("pipe").c_str(), 0600) != 0)
        throw std::runtime_error("cannot make a pipe in " + folder.path().string());

    std::vector<NamedPath> paths = {
        {"missing", folder.file("missing")},
        {"directory", folder.file("directory")},
        {"pipe", folder.file("pipe")},
        {"device", "/dev/zero"},
        {"link to nothing", folder.file("link-to-nothing")},
        {"link to itself", folder.file("link-to-itself")},
        {"below a file", plainFile + "/inside"},
        {"name too long", folder.file(std::string(300, 'x'))},
        {"empty name", ""},
    };
    if (::geteuid() != 0) { // root can read regardless of the permissions
        const std::string unreadable = folder.write("unreadable", "2 0 1\n");
        ::chmod(unreadable.c_str(), 0);
        paths.push_back({"unreadable", unreadable});
    }
    return paths;
}

} // namespace test_support
