// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHostAddress>

/// The state of a simulated adapter. The initial values are those of a unit that gets its address
/// from the network.
struct Adapter_State {
    QHostAddress address{"127.0.0.2"}; ///< in use now
    QByteArray mac = QByteArray::fromHex("d8b04c000002");
    QByteArray name = "ADAPTER"; ///< at most 16 bytes
    QByteArray username = "admin";
    QByteArray password = "admin";
    bool dhcp = true;
    QHostAddress dhcp_address{"127.0.0.2"}; ///< assigned by the network
    QHostAddress static_ip{"127.0.0.2"};
    QHostAddress gateway{"127.0.0.1"};
    QHostAddress subnet_mask{"255.0.0.0"};
};

/// The faults of a simulated adapter. With the initial values there are none.
struct Adapter_Faults {
    bool silent_to_search = false;
    int unanswered_logins = 0;       ///< logins left without an answer; -1 for all
    bool never_comes_back = false;   ///< after an apply
    int copies = 1;                  ///< number of times each answer is sent
    int search_reply_bytes = 36;     ///< cut or padded to this size
    int login_answer_bytes = 260;    ///< of an answer that does not refuse, likewise
    int foreign_datagram_bytes = -1; ///< size of one before each search reply; -1 for none
};
