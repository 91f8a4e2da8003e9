#pragma once

namespace Kedrin::Add {

/// Starts Kedrin: the program "kedrin" beside this one or, where there is none, on PATH.
/// @returns whether it was found and started
bool startKedrin();

} // namespace Kedrin::Add
