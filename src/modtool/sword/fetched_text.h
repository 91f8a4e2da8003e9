#pragma once

#include "downloaded_files.h"
#include "repository_transfer.h"
#include "sword_repositories.h"
#include "text_folder.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// A text that is downloaded, checked and read.
class CFetchedText final : public IFetchedText
{
public:
    /// What CSwordRepositories::fetch() does.
    CFetchedText(const SwordRepository& repository, const std::string& name, const TransferLimits& limits,
                 IProgress& progress);

    const SourceBible& bible() const override { return m_bible; }
    void keep() override { m_folder.moveTo(m_name); }

private:
    SwordDescription describe(const SwordRepository& repository, const std::string& name);
    void download(const SwordRepository& repository, const SwordDescription& description);
    /// @returns whether the text has the testament
    bool downloadTestament(const SwordRepository& repository, const SwordDescription& description,
                           const TestamentFiles& files);

    const TransferLimits m_limits;
    IProgress& m_progress;
    CTextFolder m_folder;
    std::string m_name;
    SourceBible m_bible;
};

/// The Bibles that a repository offers, sorted by name.
/// @param folder  for the catalogue while it is read
/// @throws CBuildError  as ISwordRepositories::offered()
std::vector<SwordDescription> biblesOf(const SwordRepository& repository, const std::string& folder,
                                       const TransferLimits& limits, IProgress& progress);

} // namespace Kedrin::ModTool
