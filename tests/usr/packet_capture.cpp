// SPDX-License-Identifier: MIT

#include "tests/usr/packet_capture.h"

#include <QHostAddress>
#include <QtEndian>

#include <cerrno>
#include <cstring>
#include <net/if.h>
#include <netinet/in.h>
#include <netpacket/packet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr qsizetype max_packet_bytes = 65536;

// Offsets in the IP header, whose length is in its first byte, and in the UDP header after it.
constexpr qsizetype protocol_offset = 9;
constexpr qsizetype from_offset = 12;
constexpr qsizetype to_offset = 16;
constexpr qsizetype udp_header_bytes = 8;

constexpr const char* clock_address = "127.0.0.1.";

qsizetype ip_header_bytes(const QByteArray& packet) { return (packet.at(0) & 0x0f) * qsizetype(4); }

QString endpoint(const QByteArray& packet, qsizetype address_offset, qsizetype port_offset) {
    const QHostAddress address(qFromBigEndian<quint32>(packet.constData() + address_offset));
    const auto port =
        qFromBigEndian<quint16>(packet.constData() + ip_header_bytes(packet) + port_offset);
    return address.toString() + '.' + QString::number(port);
}

/// The next packet received over the loopback, which reports each twice; empty if there is none.
QByteArray next_packet(int packet_socket) {
    QByteArray packet(max_packet_bytes, '\0');
    while (true) {
        sockaddr_ll sender{};
        socklen_t sender_bytes = sizeof sender;
        const ssize_t size =
            recvfrom(packet_socket, packet.data(), static_cast<std::size_t>(packet.size()),
                     MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&sender), &sender_bytes);
        if (size <= 0) {
            return {};
        }
        if (sender.sll_pkttype != PACKET_OUTGOING) {
            return packet.first(size);
        }
    }
}

} // namespace

Packet_Capture::Packet_Capture()
    : packet_socket(socket(AF_PACKET, SOCK_DGRAM | SOCK_CLOEXEC, htons(0x0800))) {
    sockaddr_ll place{};
    place.sll_family = AF_PACKET;
    place.sll_protocol = htons(0x0800);
    place.sll_ifindex = static_cast<int>(if_nametoindex("lo"));
    if (packet_socket < 0 ||
        bind(packet_socket, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0) {
        qFatal("no packet can be captured: %s", std::strerror(errno));
    }
}

Packet_Capture::~Packet_Capture() { close(packet_socket); }

QList<Captured_Datagram> Packet_Capture::finish() {
    QList<Captured_Datagram> datagrams;
    for (QByteArray packet = next_packet(packet_socket); !packet.isEmpty();
         packet = next_packet(packet_socket)) {
        if (packet.at(protocol_offset) != IPPROTO_UDP) {
            continue;
        }
        const Captured_Datagram datagram{endpoint(packet, from_offset, 0),
                                         endpoint(packet, to_offset, 2),
                                         packet.mid(ip_header_bytes(packet) + udp_header_bytes)};
        // Datagrams of the tests' clock to itself, see tests/support/virtual_time.cpp.
        if (!datagram.from.startsWith(clock_address) || !datagram.to.startsWith(clock_address)) {
            datagrams.append(datagram);
        }
    }
    return datagrams;
}
