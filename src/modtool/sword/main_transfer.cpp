#include <installmgr.h>
#include <remotetrans.h>
#include <swlog.h>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <string>

namespace {

/// What the library has for the network.
class CTransports : public sword::InstallMgr
{
public:
    using sword::InstallMgr::InstallMgr;

    std::unique_ptr<sword::RemoteTransport> transportFor(const std::string& url)
    {
        const std::size_t host = url.find("://") + 3;
        const std::string hostName = url.substr(host, url.find('/', host) - host);
        return std::unique_ptr<sword::RemoteTransport>(url.starts_with("ftp:")
                                                           ? createFTPTransport(hostName.c_str(), nullptr)
                                                           : createHTTPTransport(hostName.c_str(), nullptr));
    }
};

/// The server may send what it likes. A write beyond the limit fails.
void limitFiles(rlim_t byteCount)
{
    ::signal(SIGXFSZ, SIG_IGN);
    ::rlimit size = {};
    size.rlim_cur = size.rlim_max = byteCount;
    ::setrlimit(RLIMIT_FSIZE, &size);
}

bool endsWith(pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    return ::getppid() == parent; // else it has ended before that call
}

bool transfer(const std::string& url, const std::string& fileName, long milliseconds)
{
    sword::SWLog::getSystemLog()->setLogLevel(0);
    CTransports transports(std::filesystem::path(fileName).parent_path().c_str());
    const auto transport = transports.transportFor(url);
    transport->setTimeoutMillis(milliseconds);
    transport->setUnverifiedPeerAllowed(false);
    transport->setPassive(true);
    transport->setUser("ftp");
    transport->setPasswd("ftp@");
    return transport->getURL(fileName.c_str(), url.c_str()) == 0;
}

} // namespace

/// The arguments are described in transfer_program.h.
int main(int argc, char* argv[])
{
    if (argc != 6 || !endsWith(static_cast<pid_t>(std::stol(argv[5]))))
        return 1;
    limitFiles(std::stoull(argv[3]) + 1);
    return transfer(argv[1], argv[2], std::stol(argv[4])) ? 0 : 1;
}
