// SPDX-License-Identifier: MIT

// Belongs to the target whose precompiled headers the tests share.
