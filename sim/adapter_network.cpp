// SPDX-License-Identifier: MIT

#include "sim/adapter_network.h"

#include <QNetworkInterface>
#include <QtEndian>

#include <algorithm>
#include <dlfcn.h>

Adapter_Network::Adapter_Network(QObject* parent) : QObject(parent) {
    connect(&listener, &QUdpSocket::readyRead, this, &Adapter_Network::serve);
}

bool Adapter_Network::is_private() {
    // Only the library that keeps a process on the loopback has it, see loopback_network/.
    if (dlsym(RTLD_DEFAULT, "halvern_loopback_network") != nullptr) {
        return true;
    }
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    return std::all_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& network) {
        const auto flags = network.flags();
        return flags.testFlag(QNetworkInterface::IsLoopBack) ||
               !flags.testFlag(QNetworkInterface::IsUp);
    });
}

bool Adapter_Network::start() {
    return is_private() && listener.bind(QHostAddress::AnyIPv4, configuration_port,
                                         QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint);
}

Simulated_Adapter& Adapter_Network::add(const Adapter_State& state) {
    all_adapters.push_back(std::make_unique<Simulated_Adapter>(state));
    all_adapters.back()->go_online();
    return *all_adapters.back();
}

Adapter_State Adapter_Network::numbered(const Adapter_State& first, int number) {
    Adapter_State state = first;
    const auto step = static_cast<quint32>(number);
    for (QHostAddress* address : {&state.address, &state.dhcp_address, &state.static_ip}) {
        *address = QHostAddress(address->toIPv4Address() + step);
    }
    const quint32 last_mac_bytes = qFromBigEndian<quint32>(first.mac.constData() + 2);
    qToBigEndian(last_mac_bytes + step, state.mac.data() + 2);
    return state;
}

int Adapter_Network::serve() {
    int count = 0;
    while (listener.hasPendingDatagrams()) {
        QByteArray frame(listener.pendingDatagramSize(), '\0');
        QHostAddress sender;
        quint16 sender_port = 0;
        listener.readDatagram(frame.data(), frame.size(), &sender, &sender_port);
        ++count;
        emit frame_received(frame, sender, sender_port);
        for (const auto& adapter : all_adapters) {
            adapter->take_frame(frame, sender, sender_port);
        }
    }
    return count;
}
