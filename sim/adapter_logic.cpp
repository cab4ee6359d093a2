// SPDX-License-Identifier: MIT

#include "sim/adapter_logic.h"

#include "sim/adapter_bytes.h"

#include <algorithm>

namespace {

using Verdict = Adapter_Reaction::Verdict;

constexpr qsizetype credential_bytes = 6;
constexpr qsizetype name_bytes = 16;

Adapter_Reaction reject(const QString& why) {
    return {Verdict::rejected, "rejected: " + why, {}, false};
}

QByteArray refusal() { return QByteArray::fromHex("ff010000"); }

/// The longest text without the zero bytes it was filled up with.
QByteArray text_of(const QByteArray& field) {
    const qsizetype end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

/// Why a configuration frame's fixed bytes are wrong; empty if they are right.
QString fixed_bytes_error(const QByteArray& frame) {
    const struct {
        qsizetype first;
        QByteArray bytes;
    } groups[] = {
        {21, QByteArray::fromHex("093803")},
        {25, QByteArray::fromHex("2019500002")},
        {70, QByteArray::fromHex("02010000")},
        {80, QByteArray::fromHex("100e000001000000")},
    };
    for (const auto& group : groups) {
        const QByteArray found = frame.mid(group.first, group.bytes.size());
        if (found != group.bytes) {
            return QString("bytes from %1 on are %2 instead of %3")
                .arg(group.first)
                .arg(QString::fromLatin1(found.toHex()), QString::fromLatin1(group.bytes.toHex()));
        }
    }
    return {};
}

} // namespace

Adapter_Reaction Adapter_Logic::take(const QByteArray& frame) {
    if (frame.size() < 3 || frame.at(0) != '\xff') {
        return reject("no frame");
    }
    switch (frame.at(2)) {
    case 1:
        return frame == QByteArray::fromHex("ff010102") ? answer_search()
                                                        : reject("a wrong search frame");
    case 3:
    case 4: {
        const QString error = frame_error(frame, 22, 0x13);
        if (!error.isEmpty()) {
            return reject(error);
        }
        return frame.at(2) == 3 ? take_login(frame) : take_apply(frame);
    }
    case 5: {
        const QString error = frame_error(frame, 89, 0x56);
        return error.isEmpty() ? take_config(frame) : reject(error);
    }
    default:
        return reject("an unknown command");
    }
}

Adapter_Reaction Adapter_Logic::answer_search() const {
    Adapter_Reaction reaction;
    if (unit_faults.silent_to_search) {
        reaction.note = "search, kept silent";
        return reaction;
    }
    if (unit_faults.foreign_datagram_bytes >= 0) {
        reaction.answers << QByteArray(unit_faults.foreign_datagram_bytes, '\x42');
    }
    reaction.answers +=
        copies_of(search_reply().leftJustified(unit_faults.search_reply_bytes, '\0', true));
    reaction.note = "search, answered";
    return reaction;
}

Adapter_Reaction Adapter_Logic::take_login(const QByteArray& frame) {
    if (!has_our_mac(frame)) {
        return {Verdict::not_for_us, {}, {}, false};
    }
    if (unit_faults.unanswered_logins != 0) {
        unit_faults.unanswered_logins = std::max(unit_faults.unanswered_logins - 1, -1);
        return {Verdict::taken, "login, kept silent", {}, false};
    }
    const QString error = credentials_error(frame);
    if (!error.isEmpty()) {
        return {Verdict::refused, "login, refused: " + error, copies_of(refusal()), false};
    }
    const QByteArray answer =
        login_answer().leftJustified(unit_faults.login_answer_bytes, '\0', true);
    return {Verdict::taken, "login, answered", copies_of(answer), false};
}

Adapter_Reaction Adapter_Logic::take_config(const QByteArray& frame) {
    if (!has_our_mac(frame)) {
        return {Verdict::not_for_us, {}, {}, false};
    }
    waiting_for_apply.reset();
    const QString error = credentials_error(frame);
    if (!error.isEmpty()) {
        return {Verdict::refused, "configuration, refused: " + error, {}, false};
    }
    const QString wrong_bytes = fixed_bytes_error(frame);
    if (!wrong_bytes.isEmpty()) {
        return reject("configuration: " + wrong_bytes);
    }
    if (frame.mid(74, 6) != unit_state.mac) {
        return reject("configuration: the second MAC address is another one");
    }
    const char allocation = frame.at(24);
    if (allocation != '\x00' && allocation != '\x80') {
        return reject("configuration: the allocation is neither 00 nor 80");
    }
    Adapter_State next = unit_state;
    next.dhcp = allocation == '\x00';
    next.static_ip = address_from(frame.mid(30, 4));
    next.gateway = address_from(frame.mid(34, 4));
    next.subnet_mask = address_from(frame.mid(38, 4));
    next.name = text_of(frame.mid(42, name_bytes));
    next.username = text_of(frame.mid(58, credential_bytes));
    next.password = text_of(frame.mid(64, credential_bytes));
    next.address = next.dhcp ? next.dhcp_address : next.static_ip;
    waiting_for_apply = next;
    return {Verdict::taken, "configuration, waits for its apply", {}, false};
}

Adapter_Reaction Adapter_Logic::take_apply(const QByteArray& frame) {
    if (!has_our_mac(frame)) {
        return {Verdict::not_for_us, {}, {}, false};
    }
    const QString error = credentials_error(frame);
    if (!error.isEmpty()) {
        return {Verdict::refused, "apply, refused: " + error, {}, false};
    }
    if (!waiting_for_apply) {
        return reject("apply: no configuration before it");
    }
    unit_state = *waiting_for_apply;
    waiting_for_apply.reset();
    return {Verdict::taken, "apply, restarts as " + unit_state.address.toString(), {}, true};
}

bool Adapter_Logic::has_our_mac(const QByteArray& frame) const {
    return frame.mid(3, 6) == unit_state.mac;
}

QString Adapter_Logic::credentials_error(const QByteArray& frame) const {
    if (frame.mid(9, credential_bytes) != filled_up(unit_state.username, credential_bytes)) {
        return "wrong user name";
    }
    if (frame.mid(15, credential_bytes) != filled_up(unit_state.password, credential_bytes)) {
        return "wrong password";
    }
    return {};
}

QByteArrayList Adapter_Logic::copies_of(const QByteArray& datagram) const {
    return QByteArrayList(unit_faults.copies, datagram);
}

QByteArray Adapter_Logic::search_reply() const {
    QByteArray reply = QByteArray::fromHex("ff240100a1");
    reply += bytes_of(unit_state.address);
    reply += unit_state.mac;
    reply += QByteArray::fromHex("a2a3a4a5");
    reply += filled_up(unit_state.name, name_bytes);
    reply += '\xa6';
    return reply;
}

QByteArray Adapter_Logic::login_answer() const {
    QByteArray answer = QByteArray::fromHex("a1a2a3");
    answer += unit_state.dhcp ? '\x40' : '\x80';
    answer += QByteArray::fromHex("a4a5a6a7a8");
    answer += reversed(bytes_of(unit_state.static_ip));
    answer += reversed(bytes_of(unit_state.gateway));
    answer += reversed(bytes_of(unit_state.subnet_mask));
    return answer.leftJustified(260, '\xb1');
}
