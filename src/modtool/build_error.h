#pragma once

#include <stdexcept>
#include <string>

namespace Kedrin::ModTool {

/// Why a module cannot be built, for the user to read: one sentence that names the place, or a sentence and a list of
/// lines. Thrown by every step of a build; the command prints it.
class CBuildError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Another process builds the same folder.
class CFolderBusy : public CBuildError
{
public:
    using CBuildError::CBuildError;
};

/// The text is made of letters that Windows-1251 lacks.
class CUnfitText : public CBuildError
{
public:
    using CBuildError::CBuildError;
};

} // namespace Kedrin::ModTool
