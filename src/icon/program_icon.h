#pragma once

class QString;

namespace Kedrin {

/// Gives all windows of the program their icon: the compiled-in pictures of 16 to 64 pixels, and for desktops that
/// take it from there the desktop file.
/// @param desktopFile  its name without ".desktop"
void setProgramIcon(const QString& desktopFile);

} // namespace Kedrin
