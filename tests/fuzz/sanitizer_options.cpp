// SPDX-License-Identifier: MIT

// The sanitizer options of every fuzzer, so that a finding can be reproduced with its file alone.

extern "C" const char* __asan_default_options();
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __ubsan_default_options();

// Enough freed memory is kept back to detect a use after free within an input, and enough of the
// stack of each allocation to locate it.
const char* __asan_default_options() { return "quarantine_size_mb=16:malloc_context_size=8"; }

const char* __ubsan_default_options() { return "print_stacktrace=1"; }

const char* __lsan_default_options() { return "print_suppressions=0"; }

// fontconfig and D-Bus keep their memory until the end.
const char* __lsan_default_suppressions() { return "leak:libfontconfig\nleak:libdbus-1\n"; }
