// SPDX-License-Identifier: MIT

#pragma once

/// The two kinds of link to a switch.
enum class Link_Method {
    serial,
    /// Through an adapter.
    network
};
