#include "repository_transfer.h"

#include "errors.h"
#include "messages.h"
#include "transfer_program.h"

#include <cctype>
#include <filesystem>
#include <thread>

namespace Kedrin::ModTool {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr auto pollingInterval = std::chrono::milliseconds(20);

[[noreturn]] void fail(const std::string& place, const std::string& what)
{
    throw CBuildError(place + ": " + what);
}

std::uint64_t sizeOf(const std::string& fileName)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(fileName, error);
    return error ? 0 : size;
}

void failTooLong(const std::string& place, const TransferLimits& limits)
{
    fail(place, message("is longer than %s MiB", limits.byteCount >> 20));
}

bool download(const std::string& url, const std::string& fileName, const TransferLimits& limits,
              IProgress& progress)
{
    CTransferProgram process(url, fileName, limits);
    std::uint64_t size = 0;
    Clock::time_point lastGrowth = Clock::now();
    while (!process.hasEnded()) {
        std::this_thread::sleep_for(pollingInterval);
        progress.show(tr("downloading"), 0, 1);
        const std::uint64_t now = sizeOf(fileName);
        if (now != size)
            lastGrowth = Clock::now();
        size = now;
        if (Clock::now() - lastGrowth > limits.stall)
            fail(url, message("the server sent nothing for %s seconds",
                              std::chrono::ceil<std::chrono::seconds>(limits.stall).count()));
    }
    size = sizeOf(fileName);
    if (size > limits.byteCount)
        failTooLong(url, limits);
    if (!process.hasSucceeded() && size != 0)
        fail(url, tr("the transfer broke off"));
    std::error_code ignored;
    return process.hasSucceeded() && fs::exists(fileName, ignored);
}

bool copyFile(const std::string& folder, const std::string& name, const std::string& fileName,
              const TransferLimits& limits)
{
    std::error_code error;
    const fs::path file = fs::path(folder) / name;
    if (!fs::exists(file, error))
        return false;
    const fs::path root = fs::canonical(folder, error);
    const fs::path target = fs::canonical(file, error);
    if (error || !fs::is_regular_file(target, error) || !target.string().starts_with(root.string() + '/'))
        fail(file, tr("is not a file of the repository"));
    if (sizeOf(target) > limits.byteCount)
        failTooLong(file, limits);
    fs::copy_file(target, fileName, error);
    if (error)
        fail(file, error.message());
    return true;
}

/// With '%' for what a URL cannot hold.
std::string escapedForUrl(const std::string& path)
{
    constexpr std::string_view safe = "-._~/";
    constexpr const char* digits = "0123456789ABCDEF";
    std::string escaped;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || safe.find(c) != std::string_view::npos)
            escaped += c;
        else
            escaped += {'%', digits[byte >> 4], digits[byte & 15]};
    }
    return escaped;
}

} // namespace

bool transferFile(const std::string& address, const std::string& name, const std::string& fileName,
                  const TransferLimits& limits, IProgress& progress)
{
    if (address.find("://") != std::string::npos)
        return download(address + '/' + escapedForUrl(name), fileName, limits, progress);
    return copyFile(address, name, fileName, limits);
}

} // namespace Kedrin::ModTool
