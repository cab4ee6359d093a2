// SPDX-License-Identifier: MIT

// How the sanitizers of every fuzzer are set, so that a finding is reproduced by its file alone.

extern "C" const char* __asan_default_options();
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __ubsan_default_options();

// Enough memory is kept back for a use after its freeing to be seen within an input, and enough of
// the stack at each allocation to find it.
const char* __asan_default_options() { return "quarantine_size_mb=16:malloc_context_size=8"; }

const char* __ubsan_default_options() { return "print_stacktrace=1"; }

const char* __lsan_default_options() { return "print_suppressions=0"; }

// fontconfig and D-Bus keep their own until the end.
const char* __lsan_default_suppressions() { return "leak:libfontconfig\nleak:libdbus-1\n"; }
