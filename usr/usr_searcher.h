// SPDX-License-Identifier: MIT

#pragma once

#include <QHostAddress>
#include <QList>
#include <QStringList>
#include <QUdpSocket>

#include <memory>

/// Senders of search replies. The addresses are shared, so that a copied list stays valid when a
/// new search replaces the searcher's own.
using USR_Address_List = QList<std::shared_ptr<const QHostAddress>>;

/// The UDP port on which every adapter listens for frames, broadcast to the whole network.
constexpr quint16 adapter_port = 1901;

/// Finds the adapters of the local network: sends one broadcast and collects the answers within a
/// fixed time. It blocks the calling thread for 1.5 seconds, and again for each search in which a
/// datagram of wrong length arrived. When it returns, the search is done.
///
/// The two result lists are parallel: entry i of both belongs to the same datagram, in the order of
/// arrival. An adapter that answers twice has two entries.
class USR_searcher {
public:
    /// Searches again. If the local port 4242 is not available, nothing is sent, the lists stay
    /// unchanged, and the call returns at once.
    ///
    /// Only the length of a reply is checked. One reply that is not 36 bytes long makes the whole
    /// search start again, as often as necessary.
    ///
    /// @return 1 if the first of these searches read a datagram, independent of later ones, so the
    ///         lists may still be empty; -1 if it read none, if the port was in use, or after a
    ///         failure ("Search USR error").
    int search_USR_in_network();

    /// The datagrams of the last search as hexadecimal text (adapter_replies.h has the fields).
    [[nodiscard]] QStringList get_USR_replies() const { return USR_replies; }
    /// The senders of these datagrams.
    [[nodiscard]] USR_Address_List get_USR_addresses() const { return USR_addresses; }

protected:
    QUdpSocket search_socket;
    QStringList USR_replies;
    USR_Address_List USR_addresses;

private:
    struct Search_Outcome {
        bool found_any = false;
        bool found_wrong_length = false;
    };

    Search_Outcome search_once();
    void listen_for_replies();
    void read_waiting_replies();
    [[nodiscard]] bool can_take_more() const;
};
