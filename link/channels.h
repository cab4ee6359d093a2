// SPDX-License-Identifier: MIT

#pragma once

/// Channels of a unit, and custom entries of it. They count from 1.
inline constexpr int channel_count = 4;
