#pragma once

namespace Kedrin::ModTool {

/// Call before anything is opened or written. Exceeding the file size limit makes a write fail instead of
/// ending the process. A closed standard stream is opened unusable, so that no other file gets its
/// descriptor.
void setUpProcess();

} // namespace Kedrin::ModTool
