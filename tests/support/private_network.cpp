// SPDX-License-Identifier: MIT

#include "tests/support/private_network.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// Contains the name of the network in which the program was first started.
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

/// Reports the functions of a Qt test as skipped. A separate process of the test prints their names
/// and does nothing else: the option replaces all its arguments.
int skip_all(char* program, const std::string& refusal,
             const std::function<int(int, char**)>& run) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
        return 1;
    }
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        std::string option = "-functions";
        std::array<char*, 3> arguments = {program, option.data(), nullptr};
        const int status = run(2, arguments.data());
        std::fflush(stdout);
        _exit(status);
    }
    close(ends[1]);
    int count = 0;
    FILE* names = fdopen(ends[0], "r");
    std::array<char, 1000> name{};
    while (child > 0 && names != nullptr &&
           std::fgets(name.data(), static_cast<int>(name.size()), names) != nullptr) {
        name[std::strcspn(name.data(), "\n")] = '\0';
        std::printf("SKIP   : %s no private network: %s\n", name.data(), refusal.c_str());
        ++count;
    }
    int status = 1;
    waitpid(child, &status, 0);
    return status == 0 && count > 0 ? 0 : 1;
}

} // namespace

std::string private_network_refusal() {
    // If these tools are missing, the system refuses nothing, so the test must fail. A system may
    // allow the namespace but nothing in it.
    FILE* attempt = popen("command -v unshare >/dev/null && command -v ip >/dev/null || exit 127; "
                          "unshare -n ip link set lo up 2>/dev/null || "
                          "unshare -Urn ip link set lo up 2>&1 || exit 1",
                          "r");
    if (attempt == nullptr) {
        return {};
    }
    std::array<char, 200> said{};
    if (std::fgets(said.data(), static_cast<int>(said.size()), attempt) == nullptr) {
        std::strcpy(said.data(), "unshare(1) fails");
    }
    said[std::strcspn(said.data(), "\n")] = '\0';
    const int status = pclose(attempt);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1 ? said.data() : std::string();
}

int run_test_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run) {
    if (std::getenv(outer_network_variable) == nullptr) {
        if (const std::string refusal = private_network_refusal(); !refusal.empty()) {
            return skip_all(argv[0], refusal, run);
        }
    }
    return run_in_private_network(argc, argv, run);
}

int run_test_of_private_networks(int argc, char** argv,
                                 const std::function<int(int, char**)>& run) {
    const std::string refusal = private_network_refusal();
    return refusal.empty() ? run(argc, argv) : skip_all(argv[0], refusal, run);
}

int run_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run) {
    const char* outer_network = std::getenv(outer_network_variable);
    if (outer_network == nullptr) {
        return start_anew(argv);
    }
    if (network_name().empty() || network_name() == outer_network) {
        std::fprintf(stderr, "FAIL!  : this is no network of the test's own\n");
        return 1;
    }
    // Programs that the test starts may themselves create a private network.
    unsetenv(outer_network_variable);
    return run(argc, argv);
}
