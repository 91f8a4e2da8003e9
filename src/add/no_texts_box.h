#pragma once

namespace Kedrin::Add {

/// Says in a box that Kedrin has no text of the Bible yet, and how to get one.
/// @returns whether the user wants to add one now
bool wantsToAddText();

} // namespace Kedrin::Add
