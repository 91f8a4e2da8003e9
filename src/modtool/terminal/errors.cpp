#include "errors.h"

#include "messages.h"

#include <cerrno>
#include <cstring>
#include <system_error>

namespace Kedrin::ModTool {

std::string atLine(const std::string& fileName, std::size_t line, const std::string& what)
{
    return fileName + ':' + std::to_string(line) + ": " + what;
}

void failAtLine(const std::string& fileName, std::size_t line, const std::string& what)
{
    throw CBuildError(atLine(fileName, line, what));
}

std::string systemReason(int error)
{
    const bool isMissing = error == 0 || error == ENOENT || error == ENOTDIR;
    return isMissing ? std::string() : std::string(" (") + std::strerror(error) + ')';
}

std::string withSystemReason(const std::exception& failure)
{
    const auto* refused = dynamic_cast<const std::system_error*>(&failure);
    const bool isOfTheSystem = refused && refused->code().category() == std::generic_category();
    if (isOfTheSystem)
        return failure.what() + systemReason(refused->code().value());
    const bool isOfTheProcess = errno == EMFILE || errno == ENFILE;
    return failure.what() + (isOfTheProcess ? systemReason(errno) : std::string());
}

void sayError(std::ostream& err, const std::string& what)
{
    err << "kedrin-module: " << printable(what) << '\n';
}

} // namespace Kedrin::ModTool
