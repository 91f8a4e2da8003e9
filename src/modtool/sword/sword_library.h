#pragma once

#include "sword_texts.h"

#include <memory>

namespace Kedrin::ModTool {

/// The SWORD modules installed for the user and the system, as the SWORD library finds them. Nothing is
/// written to the standard streams. One object serves one thread.
class CSwordLibrary final : public ISwordTexts
{
public:
    CSwordLibrary();
    /// Those of one folder only, which holds mods.d.
    explicit CSwordLibrary(const std::string& folder);
    ~CSwordLibrary() override;
    CSwordLibrary(const CSwordLibrary&) = delete;
    CSwordLibrary& operator=(const CSwordLibrary&) = delete;

    std::vector<std::string> bibles() const override;
    std::string title(const std::string& name) const override;
    std::string resolve(const std::string& name) const override;
    SourceBible read(const std::string& name,
                     const std::function<void(std::size_t, std::size_t)>& progress) const override;
    std::string fingerprint(const std::string& name) const override;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace Kedrin::ModTool
