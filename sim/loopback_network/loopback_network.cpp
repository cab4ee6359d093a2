// SPDX-License-Identifier: MIT

// Keeps the datagrams of a process on the loopback, where no network namespace can be created.
// Preloaded into the tool and into the simulated adapters, it gives them a network that no other
// program shares:
//
// * An address 127.0.b.c is really 127.N.b.c. N is HALVERN_LOOPBACK_NETWORK, 1 to 254, so several
//   such networks can be used at a time.
// * Port numbers below 1024, which only root may bind, are really 20000 higher.
// * A socket that listens at any address gets one of a few reserved addresses, and a broadcast is
//   sent to each of them. So every listener in every process receives it.
// * Everything else is unreachable. Streams, which the display may need, reach the loopback only,
// and
//   no name but localhost is looked up.
//
// Addresses that the process reads are translated back.
//
// In C++, because there the C library declares addresses as plain pointers; the C++ library is not
// used.

#include <arpa/inet.h>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

/// A program that finds this symbol knows that it is kept on the loopback.
extern "C" {
extern const int halvern_loopback_network;
const int halvern_loopback_network = 1;
}

namespace {

constexpr std::uint32_t loopback = 127;
constexpr unsigned first_free_port = 1024;
constexpr unsigned port_shift = 20000;
/// 127.N.255.1 and so on: as many processes can listen at one port.
constexpr std::uint32_t listeners = 0xff00;
constexpr std::uint32_t max_listeners = 8;

template <typename Function>
Function* real(Function*, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define REAL(name) real(&::name, #name)

std::uint32_t own_network() {
    const char* number = getenv("HALVERN_LOOPBACK_NETWORK");
    const long value = number == nullptr ? 1 : strtol(number, nullptr, 10);
    return value >= 1 && value <= 254 ? static_cast<std::uint32_t>(value) : 1;
}

std::uint32_t own_address(std::uint32_t host) {
    return loopback << 24 | own_network() << 16 | host;
}

/// An IPv4 address and port, whichever family the socket is of.
struct Place {
    std::uint32_t address = INADDR_ANY;
    unsigned port = 0;

    [[nodiscard]] bool is_loopback() const { return address >> 24 == loopback; }
};

/// @return false if the address is of IPv6 and holds no address of IPv4.
bool read_place(const sockaddr* from, Place& place) {
    if (from->sa_family == AF_INET) {
        sockaddr_in address{};
        memcpy(&address, from, sizeof address);
        place = {ntohl(address.sin_addr.s_addr), ntohs(address.sin_port)};
        return true;
    }
    sockaddr_in6 address{};
    memcpy(&address, from, sizeof address);
    if (IN6_IS_ADDR_UNSPECIFIED(&address.sin6_addr)) {
        place = {INADDR_ANY, ntohs(address.sin6_port)};
        return true;
    }
    if (!IN6_IS_ADDR_V4MAPPED(&address.sin6_addr)) {
        return false;
    }
    std::uint32_t mapped = 0;
    memcpy(&mapped, &address.sin6_addr.s6_addr[12], sizeof mapped);
    place = {ntohl(mapped), ntohs(address.sin6_port)};
    return true;
}

void write_place(const Place& place, sockaddr* to) {
    const std::uint32_t address = htonl(place.address);
    if (to->sa_family == AF_INET) {
        auto* target = reinterpret_cast<sockaddr_in*>(to);
        target->sin_addr.s_addr = address;
        target->sin_port = htons(static_cast<std::uint16_t>(place.port));
        return;
    }
    auto* target = reinterpret_cast<sockaddr_in6*>(to);
    memset(&target->sin6_addr, 0, sizeof target->sin6_addr);
    memset(&target->sin6_addr.s6_addr[10], 0xff, 2);
    memcpy(&target->sin6_addr.s6_addr[12], &address, sizeof address);
    target->sin6_port = htons(static_cast<std::uint16_t>(place.port));
}

void translate_outwards(Place& place) {
    if ((place.address >> 16 & 0xff) == 0) {
        place.address |= own_network() << 16;
    }
    if (place.port != 0 && place.port < first_free_port) {
        place.port += port_shift;
    }
}

void translate_inwards(sockaddr* address, socklen_t length) {
    Place place;
    if (address == nullptr || length < sizeof(sockaddr_in) ||
        (address->sa_family != AF_INET && address->sa_family != AF_INET6) ||
        (address->sa_family == AF_INET6 && length < sizeof(sockaddr_in6)) ||
        !read_place(address, place) || !place.is_loopback() ||
        (place.address >> 16 & 0xff) != own_network()) {
        return;
    }
    place.address &= 0xff00ffff;
    if (place.port > port_shift && place.port < port_shift + first_free_port) {
        place.port -= port_shift;
    }
    write_place(place, address);
}

bool is_internet(const sockaddr* address, socklen_t length) {
    return address != nullptr &&
           ((address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) ||
            (address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)));
}

bool is_datagram_socket(int socket) {
    int type = 0;
    socklen_t size = sizeof type;
    return getsockopt(socket, SOL_SOCKET, SO_TYPE, &type, &size) == 0 && type == SOCK_DGRAM;
}

/// Whether a stream may go there.
bool is_on_loopback(const sockaddr* address) {
    Place place;
    if (read_place(address, place)) {
        return place.is_loopback();
    }
    sockaddr_in6 other{};
    memcpy(&other, address, sizeof other);
    return IN6_IS_ADDR_LOOPBACK(&other.sin6_addr);
}

int refuse() {
    errno = ENETUNREACH;
    return -1;
}

int bind_at(int socket, Place place, const sockaddr* as, socklen_t length) {
    sockaddr_storage address{};
    memcpy(&address, as, length < sizeof address ? length : sizeof address);
    write_place(place, reinterpret_cast<sockaddr*>(&address));
    return REAL(bind)(socket, reinterpret_cast<sockaddr*>(&address), length);
}

/// Gives a listener one of the addresses that broadcasts go to, for itself alone.
int bind_listener(int socket, unsigned port, const sockaddr* as, socklen_t length) {
    int shared = 0;
    socklen_t size = sizeof shared;
    getsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &shared, &size);
    const int alone = 0;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &alone, sizeof alone);
    int result = -1;
    for (std::uint32_t number = 1; number <= max_listeners && result != 0; ++number) {
        Place place{own_address(listeners + number), port};
        translate_outwards(place);
        result = bind_at(socket, place, as, length);
        if (result != 0 && (errno != EADDRINUSE || shared == 0)) {
            break;
        }
    }
    const int error = errno;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &shared, sizeof shared);
    errno = error;
    return result;
}

/// A socket without an address gets one of this network before it sends: the system would choose
/// 127.0.0.1, which the network does not know.
void ensure_bound(int socket) {
    sockaddr_storage now{};
    socklen_t length = sizeof now;
    Place place;
    auto* address = reinterpret_cast<sockaddr*>(&now);
    if (REAL(getsockname)(socket, address, &length) == 0 && is_internet(address, length) &&
        read_place(address, place) && place.port == 0) {
        bind_at(socket, {own_address(1), 0}, address, length);
    }
}

/// Sends one datagram to its real address.
ssize_t send_to(int socket, const msghdr& message, Place place, int flags) {
    sockaddr_storage address{};
    memcpy(&address, message.msg_name,
           message.msg_namelen < sizeof address ? message.msg_namelen : sizeof address);
    write_place(place, reinterpret_cast<sockaddr*>(&address));
    msghdr translated = message;
    translated.msg_name = &address;
    // Control data that would choose another interface or source.
    translated.msg_control = nullptr;
    translated.msg_controllen = 0;
    return REAL(sendmsg)(socket, &translated, flags);
}

ssize_t broadcast(int socket, const msghdr& message, unsigned port, int flags) {
    ssize_t result = -1;
    for (std::uint32_t number = 1; number <= max_listeners; ++number) {
        Place place{own_address(listeners + number), port};
        translate_outwards(place);
        result = send_to(socket, message, place, flags);
        if (result < 0) {
            return result;
        }
    }
    return result;
}

} // namespace

extern "C" {

int bind(int socket, const sockaddr* address, socklen_t length) noexcept {
    if (!is_internet(address, length)) {
        return REAL(bind)(socket, address, length);
    }
    if (!is_datagram_socket(socket)) {
        return is_on_loopback(address) ? REAL(bind)(socket, address, length) : refuse();
    }
    Place place;
    if (!read_place(address, place) || (place.address != INADDR_ANY && !place.is_loopback())) {
        errno = EADDRNOTAVAIL;
        return -1;
    }
    if (place.address == INADDR_ANY && place.port != 0) {
        return bind_listener(socket, place.port, address, length);
    }
    if (place.address == INADDR_ANY) {
        place.address = own_address(1);
    }
    translate_outwards(place);
    return bind_at(socket, place, address, length);
}

int connect(int socket, const sockaddr* address, socklen_t length) {
    if (!is_internet(address, length)) {
        return REAL(connect)(socket, address, length);
    }
    if (!is_datagram_socket(socket)) {
        return is_on_loopback(address) ? REAL(connect)(socket, address, length) : refuse();
    }
    Place place;
    if (!read_place(address, place) || !place.is_loopback()) {
        return refuse();
    }
    ensure_bound(socket);
    translate_outwards(place);
    sockaddr_storage target{};
    memcpy(&target, address, length < sizeof target ? length : sizeof target);
    write_place(place, reinterpret_cast<sockaddr*>(&target));
    return REAL(connect)(socket, reinterpret_cast<sockaddr*>(&target), length);
}

ssize_t sendmsg(int socket, const msghdr* message, int flags) {
    const auto* address = static_cast<const sockaddr*>(message->msg_name);
    if (!is_internet(address, message->msg_namelen)) {
        return REAL(sendmsg)(socket, message, flags);
    }
    Place place;
    if (!is_datagram_socket(socket) || !read_place(address, place) ||
        !(place.is_loopback() || place.address == INADDR_BROADCAST)) {
        return refuse();
    }
    ensure_bound(socket);
    if (place.address == INADDR_BROADCAST) {
        return broadcast(socket, *message, place.port, flags);
    }
    translate_outwards(place);
    return send_to(socket, *message, place, flags);
}

ssize_t sendto(int socket, const void* bytes, size_t count, int flags, const sockaddr* address,
               socklen_t length) {
    if (!is_internet(address, length)) {
        return REAL(sendto)(socket, bytes, count, flags, address, length);
    }
    iovec block{const_cast<void*>(bytes), count};
    msghdr message{};
    message.msg_name = const_cast<sockaddr*>(address);
    message.msg_namelen = length;
    message.msg_iov = &block;
    message.msg_iovlen = 1;
    return sendmsg(socket, &message, flags);
}

int sendmmsg(int socket, mmsghdr* messages, unsigned count, int flags) {
    for (unsigned number = 0; number < count; ++number) {
        const ssize_t sent = sendmsg(socket, &messages[number].msg_hdr, flags);
        if (sent < 0) {
            return number == 0 ? -1 : static_cast<int>(number);
        }
        messages[number].msg_len = static_cast<unsigned>(sent);
    }
    return static_cast<int>(count);
}

ssize_t recvmsg(int socket, msghdr* message, int flags) {
    const ssize_t count = REAL(recvmsg)(socket, message, flags);
    if (count >= 0) {
        translate_inwards(static_cast<sockaddr*>(message->msg_name), message->msg_namelen);
    }
    return count;
}

ssize_t recvfrom(int socket, void* bytes, size_t size, int flags, sockaddr* address,
                 socklen_t* length) {
    const ssize_t count = REAL(recvfrom)(socket, bytes, size, flags, address, length);
    if (count >= 0 && length != nullptr) {
        translate_inwards(address, *length);
    }
    return count;
}

int getsockname(int socket, sockaddr* address, socklen_t* length) noexcept {
    const int result = REAL(getsockname)(socket, address, length);
    if (result == 0) {
        translate_inwards(address, *length);
    }
    return result;
}

int getpeername(int socket, sockaddr* address, socklen_t* length) noexcept {
    const int result = REAL(getpeername)(socket, address, length);
    if (result == 0) {
        translate_inwards(address, *length);
    }
    return result;
}

int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found) {
    addrinfo narrowed{};
    if (hints != nullptr) {
        narrowed = *hints;
    }
    if (name != nullptr && strcmp(name, "localhost") != 0) {
        narrowed.ai_flags |= AI_NUMERICHOST;
    }
    return REAL(getaddrinfo)(name, service, &narrowed, found);
}

} // extern "C"
