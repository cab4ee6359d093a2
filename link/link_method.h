// SPDX-License-Identifier: MIT

#pragma once

/// The two ways to a switch.
enum class Link_Method {
    serial,
    /// Through an adapter.
    network
};
