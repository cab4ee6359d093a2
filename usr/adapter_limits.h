// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// The capacity of the adapter's fields, in characters: 6 bytes for user name and password each,
/// 16 for the name.
constexpr qsizetype max_credential_characters = 6;
constexpr qsizetype max_name_characters = 16;
