// SPDX-License-Identifier: MIT

#pragma once

/// Holds a flag at one value for the length of a scope and leaves the opposite behind, whatever
/// stood there before.
class Flag_Guard {
public:
    Flag_Guard(bool& guarded, bool value_in_scope) : flag(guarded), value(value_in_scope) {
        flag = value;
    }
    ~Flag_Guard() { flag = !value; }
    Flag_Guard(const Flag_Guard&) = delete;
    Flag_Guard& operator=(const Flag_Guard&) = delete;

private:
    bool& flag;
    bool value;
};
