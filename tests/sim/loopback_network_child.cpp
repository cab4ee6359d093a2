// SPDX-License-Identifier: MIT

#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>

namespace {

sockaddr_in place_of(const char* address, const char* port) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(static_cast<in_port_t>(std::atoi(port)));
    inet_pton(AF_INET, address, &place.sin_addr);
    return place;
}

std::string text_of(const sockaddr_in& place) {
    std::array<char, INET_ADDRSTRLEN> address{};
    inet_ntop(AF_INET, &place.sin_addr, address.data(), address.size());
    return std::string(address.data()) + ':' + std::to_string(ntohs(place.sin_port));
}

void report(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

int fail(const char* what) {
    report(std::string(what) + ": " + std::strerror(errno));
    return 1;
}

sockaddr_in receive(int socket, std::string& text) {
    std::array<char, 100> bytes{};
    sockaddr_in sender{};
    socklen_t length = sizeof sender;
    const ssize_t size = recvfrom(socket, bytes.data(), bytes.size(), 0,
                                  reinterpret_cast<sockaddr*>(&sender), &length);
    text.assign(bytes.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    return sender;
}

int listen_at(int socket, const sockaddr_in& place) {
    if (bind(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0) {
        return fail("bind");
    }
    sockaddr_in own{};
    socklen_t length = sizeof own;
    getsockname(socket, reinterpret_cast<sockaddr*>(&own), &length);
    report("listening at port " + std::to_string(ntohs(own.sin_port)));
    std::string text;
    const sockaddr_in sender = receive(socket, text);
    report("heard " + text);
    sendto(socket, "answer", 6, 0, reinterpret_cast<const sockaddr*>(&sender), sizeof sender);
    return 0;
}

int ask(int socket, const sockaddr_in& place, const std::string& text, int answers) {
    if (sendto(socket, text.data(), text.size(), 0, reinterpret_cast<const sockaddr*>(&place),
               sizeof place) < 0) {
        return fail("sendto");
    }
    for (int number = 0; number < answers; ++number) {
        std::string answer;
        const sockaddr_in sender = receive(socket, answer);
        report(answer + " from " + text_of(sender));
    }
    return 0;
}

} // namespace

/// loopback_network_child listen ADDRESS PORT: waits for one datagram and answers it.
/// loopback_network_child ask ADDRESS PORT TEXT ANSWERS: sends one, and waits for its answers.
/// loopback_network_child connect ADDRESS PORT
int main(int argc, char** argv) {
    if (argc < 4) {
        return 2;
    }
    const std::string deed = argv[1];
    const sockaddr_in place = place_of(argv[2], argv[3]);
    const int socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    const int on = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    setsockopt(socket, SOL_SOCKET, SO_BROADCAST, &on, sizeof on);
    if (deed == "listen") {
        return listen_at(socket, place);
    }
    if (deed == "ask" && argc == 6) {
        return ask(socket, place, argv[4], std::atoi(argv[5]));
    }
    if (connect(socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0) {
        return fail("connect");
    }
    return 0;
}
