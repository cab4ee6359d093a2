// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// How an adapter gets its address. Frames, dialogs and the configurator hand it on as a text.
enum class IP_Allocation {
    /// No login has asked yet: the empty text, or one that means nothing.
    unknown,
    /// The login was refused, or the reading failed: "-1".
    refused,
    /// "00".
    dhcp,
    /// "80".
    static_address
};

[[nodiscard]] QString text_of(IP_Allocation allocation);
[[nodiscard]] IP_Allocation ip_allocation_of(const QString& text);
