// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Whether a text looks like a dotted IPv4 address: four groups of one to three digits. Only the
/// shape is checked: 999.1.1.1 has it.
[[nodiscard]] bool has_dotted_shape(const QString& text);
