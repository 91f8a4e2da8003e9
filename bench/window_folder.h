#pragma once

#include <filesystem>

/// Writes the folder of an application with two translations that differ only in the sign at the end of their
/// sentences: "." in modules/bibles/a, "!" in modules/bibles/b.
void writeWindowFolder(const std::filesystem::path& folder);

/// Writes the folder of an application with translations whose files are links to those of one module, except the one
/// that names them.
void writeManyModules(const std::filesystem::path& folder, const std::filesystem::path& module,
                      unsigned int moduleCount);
