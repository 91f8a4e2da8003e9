#pragma once

namespace Kedrin::Add {

/// Starts Kedrin: "kedrin-launcher" or "kedrin" beside kedrin-add or, where there is neither, "kedrin" on PATH.
/// @returns whether it was found and started
bool startKedrin();

} // namespace Kedrin::Add
