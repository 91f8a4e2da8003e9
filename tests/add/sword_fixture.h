#pragma once

#include "add_fixture.h"
#include "loopback_server.h"

#include <map>

namespace add_test {

/// A window with its page of SWORD texts, and a repository in a folder. It has "Made", in Bulgarian, and whatever a test
/// adds.
class SwordFixture : public AddFixture
{
public:
    SwordFixture();

    std::string repository() const { return home("repository"); }
    /// Adds a Bible of one verse to the repository.
    /// @param configuration  further lines of its description
    void offer(const std::string& name, const std::string& configuration) const;
    /// Has the SWORD library know repositories.
    /// @param lines  "HTTPSource=..."
    void configure(const std::string& lines) const;

    /// What a server answers that has the repository.
    std::map<std::string, build_test::LoopbackServer::Answer> answers() const
    {
        return build_test::answersFrom(repository());
    }

    /// Opens the page and waits until the Bibles of this computer are listed.
    void openPage();
    /// Chooses the last entry of the choice, and enters an address or folder.
    void enterAddress(const std::string& address) const;
    /// The same, and waits until its Bibles are listed.
    void listFolder() const;
    /// The same over the network, which is allowed.
    void listAddress(const std::string& address) const;
    /// The rows of the list: title, language, size and name.
    QStringList rows() const;

    /// Whether neither a text nor a module is there, in part or whole.
    bool hasNothing() const;
};

} // namespace add_test
