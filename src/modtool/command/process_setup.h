#pragma once

namespace Kedrin::ModTool {

/// Call before anything is opened or written. Exceeding the file size limit makes a write fail instead of ending the
/// process. How children end can be learnt with waitpid(), even if the process that started this one ignored SIGCHLD. A
/// closed standard stream is opened unusable, so that no other file gets its descriptor.
void setUpProcess();

} // namespace Kedrin::ModTool
