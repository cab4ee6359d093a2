// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHostAddress>

/// Everything a simulated adapter remembers. The start values are those of a unit that gets its
/// address from the network.
struct Adapter_State {
    QHostAddress address{"127.0.0.2"}; ///< in use now
    QByteArray mac = QByteArray::fromHex("d8b04c000002");
    QByteArray name = "ADAPTER"; ///< at most 16 bytes
    QByteArray username = "admin";
    QByteArray password = "admin";
    bool dhcp = true;
    QHostAddress dhcp_address{"127.0.0.2"}; ///< what the network gives it
    QHostAddress static_ip{"127.0.0.2"};
    QHostAddress gateway{"127.0.0.1"};
    QHostAddress subnet_mask{"255.0.0.0"};
};

/// How a simulated adapter goes wrong. The faults as they start leave it in good health.
struct Adapter_Faults {
    bool silent_to_search = false;
    int unanswered_logins = 0;       ///< how many it keeps silent to, from now on; -1 for all
    bool never_comes_back = false;   ///< after an apply
    int copies = 1;                  ///< how often each answer is sent
    int search_reply_bytes = 36;     ///< cut or filled up to this size
    int login_answer_bytes = 260;    ///< of an answer that does not refuse, likewise
    int foreign_datagram_bytes = -1; ///< size of one sent ahead of each search reply; -1 for none
};
