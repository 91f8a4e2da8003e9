#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Kedrin::ModTool {

/// The description of a SWORD text: a section of a configuration.
struct SwordDescription
{
    std::string name;
    std::vector<std::pair<std::string, std::string>>
        entries; ///< key and value, in their order; values hold no line ends

    /// The first value of a key, "" where there is none.
    std::string entry(std::string_view key) const;
};

/// The sections of a configuration. Lines that are none of a configuration's are left out.
std::vector<SwordDescription> readSwordConfiguration(std::string_view text);

/// A description as a configuration. readSwordConfiguration() reads it.
std::string swordConfiguration(const SwordDescription& description);

/// The contents of the files mods.d/NAME.conf of a catalogue, mods.d.tar.gz. All else in it is left out: nothing is
/// unpacked to disk.
/// @throws CBuildError  "is not a catalogue of SWORD texts", "is a catalogue of more than %s MiB"
std::vector<std::string> readSwordCatalogue(const std::string& tarGz);

/// Whether a text of this name and with this folder (DataPath) may be taken: neither can lead out of the folder that it is
/// written to or taken from.
bool isSafeName(std::string_view name);
bool isSafePath(std::string_view path);

} // namespace Kedrin::ModTool
