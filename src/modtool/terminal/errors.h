#pragma once

#include <exception>
#include <ostream>
#include <stdexcept>
#include <string>

namespace Kedrin::ModTool {

/// Base of the tool's errors. what() is for the user to read: one sentence that names the file, folder or position, or a
/// sentence and a list of lines. The commands print it with sayError().
class CToolError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A module cannot be built. Thrown by every step of a build.
class CBuildError : public CToolError
{
public:
    using CToolError::CToolError;
};

/// Another process builds the same folder.
class CFolderBusy : public CBuildError
{
public:
    using CBuildError::CBuildError;
};

/// More than one letter in a hundred has no equivalent in Windows-1251.
class CUnfitText : public CBuildError
{
public:
    using CBuildError::CBuildError;
};

/// A module could not be checked at all.
class CCheckError : public CToolError
{
public:
    using CToolError::CToolError;
};

/// A module cannot be read, or its files disagree.
class CModuleError : public CToolError
{
public:
    using CToolError::CToolError;
};

/// A part of the program that is installed apart is not installed.
class CPartMissing : public CToolError
{
public:
    using CToolError::CToolError;
};

/// What the user asks for does not exist, or cannot be understood; the message quotes it.
class CNotFound : public CToolError
{
public:
    using CToolError::CToolError;
};

/// "%s:%u: %s"
/// @param line  from 1
std::string atLine(const std::string& fileName, std::size_t line, const std::string& what);

/// @throws CBuildError  atLine()
[[noreturn]] void failAtLine(const std::string& fileName, std::size_t line, const std::string& what);

/// " (Too many open files)": why the system refused an existing file; "" where the file is missing or no reason is
/// known.
/// @param error  errno
std::string systemReason(int error);

/// The message and, where the failure is a file that could not be opened or where errno says that the process has too
/// many open, the system's reason: the engine's message about a module names only the file.
std::string withSystemReason(const std::exception& failure);

/// Writes "kedrin-module: " and the message as a line.
void sayError(std::ostream& err, const std::string& what);

} // namespace Kedrin::ModTool
