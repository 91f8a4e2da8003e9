#pragma once

#include "repository_transfer.h"
#include "sword_repositories.h"

namespace Kedrin::ModTool {

/// Repositories of SWORD texts, over the network or in folders.
///
/// A catalogue is read in memory. A text is downloaded into a hidden folder beside its later place,
/// ${XDG_DATA_HOME:-~/.local/share}/kedrin/sword/NAME, under names of this program's, with a description of which only
/// plain entries are taken, and its files are checked before the SWORD library opens them.
class CSwordRepositories final : public ISwordRepositories
{
public:
    explicit CSwordRepositories(const TransferLimits& limits = {}) : m_limits(limits) {}

    std::vector<SwordRepository> known() const override;
    std::vector<OfferedText> offered(const SwordRepository& repository, IProgress& progress) const override;
    std::unique_ptr<IFetchedText> fetch(const SwordRepository& repository, const std::string& name,
                                        IProgress& progress) const override;

private:
    TransferLimits m_limits;
};

} // namespace Kedrin::ModTool
