// SPDX-License-Identifier: MIT

#pragma once

#include "sim/adapter_state.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>

/// The reaction of an adapter to a frame.
struct Adapter_Reaction {
    enum class Verdict {
        taken,
        refused,   ///< wrong user name or password
        rejected,  ///< the frame is not valid
        not_for_us ///< another adapter's MAC address
    };

    Verdict verdict = Verdict::taken;
    QString note;           ///< what was done, or why not
    QByteArrayList answers; ///< datagrams to the sender, in order
    bool restarts = false;  ///< it restarts, and returns with state().address
};

/// An adapter without its sockets: its state, and its reactions to the frames at its configuration
/// port. It has its own definition of the frames, independent of the tool's, and checks every
/// byte.
class Adapter_Logic {
public:
    explicit Adapter_Logic(const Adapter_State& state = {}) : unit_state(state) {}

    Adapter_Reaction take(const QByteArray& frame);

    [[nodiscard]] const Adapter_State& state() const { return unit_state; }
    void set_state(const Adapter_State& state) { unit_state = state; }

    [[nodiscard]] const Adapter_Faults& faults() const { return unit_faults; }
    void set_faults(const Adapter_Faults& faults) { unit_faults = faults; }

    /// The datagrams as a healthy adapter sends them.
    [[nodiscard]] QByteArray search_reply() const;
    [[nodiscard]] QByteArray login_answer() const;

private:
    Adapter_Reaction answer_search() const;
    Adapter_Reaction take_login(const QByteArray& frame);
    Adapter_Reaction take_config(const QByteArray& frame);
    Adapter_Reaction take_apply(const QByteArray& frame);

    [[nodiscard]] bool has_our_mac(const QByteArray& frame) const;
    /// Why the user name and password of a frame are wrong; empty if they are correct.
    [[nodiscard]] QString credentials_error(const QByteArray& frame) const;
    [[nodiscard]] QByteArrayList copies_of(const QByteArray& datagram) const;

    Adapter_State unit_state;
    Adapter_Faults unit_faults;
    std::optional<Adapter_State> waiting_for_apply;
};
