// SPDX-License-Identifier: MIT

#pragma once

/// Sets a flag to one value for the duration of a scope, and then to the opposite, independent of
/// its value before.
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
