#pragma once

namespace Kedrin::ModTool {

/// What has to hold before anything is opened or written: a file that grows past the limit of the process fails to be
/// written instead of ending the program, and a standard stream that was closed stays one that cannot be used, so that no
/// file gets its number and what is meant for the stream.
void setUpProcess();

} // namespace Kedrin::ModTool
