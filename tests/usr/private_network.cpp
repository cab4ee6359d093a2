#include "tests/usr/private_network.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Holds the name of the network that the program was first started in.
constexpr const char* outer_network_variable = "HALVERN_OUTER_NETWORK";

// Root may have no right to map users, and a user has none to a bare network.
constexpr const char* set_up = R"(
if unshare -n true 2>/dev/null; then namespaces=-n; else namespaces=-Urn; fi
exec unshare $namespaces sh -c '
    ip link set lo up || exit 1
    ip route add 255.255.255.255 dev lo src 127.0.0.1 || exit 1
    exec "$@"' sh "$@"
)";

std::string network_name() {
    std::array<char, PATH_MAX> name{};
    const ssize_t size = readlink("/proc/self/ns/net", name.data(), name.size() - 1);
    return size > 0 ? std::string(name.data(), static_cast<std::size_t>(size)) : std::string();
}

int start_anew(char** argv) {
    setenv(outer_network_variable, network_name().c_str(), 1);
    std::string shell = "sh";
    std::string option = "-c";
    std::string script = set_up;
    std::vector<char*> command = {shell.data(), option.data(), script.data(), shell.data()};
    for (char** argument = argv; *argument != nullptr; ++argument) {
        command.push_back(*argument);
    }
    command.push_back(nullptr);
    execvp(command[0], command.data());
    std::fprintf(stderr, "FAIL!  : sh can't be started: %s\n", std::strerror(errno));
    return 1;
}

} // namespace

int run_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run) {
    const char* outer_network = std::getenv(outer_network_variable);
    if (outer_network == nullptr) {
        return start_anew(argv);
    }
    if (network_name().empty() || network_name() == outer_network) {
        std::fprintf(stderr, "FAIL!  : this is no network of the test's own\n");
        return 1;
    }
    // Programs that the test starts may make a network of their own in turn.
    unsetenv(outer_network_variable);
    return run(argc, argv);
}
