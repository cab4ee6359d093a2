// SPDX-License-Identifier: MIT

#include "benchmarks/flush_hook.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

extern "C" {

void (*flush_observer)(void* window) = nullptr;

void flush_backing_store(void* store, const void* region, void* window, const void* offset) __asm__(
    "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint");

} // extern "C"

namespace {

using Flush = void (*)(void*, const void*, void*, const void*);

Flush find_qt_flush() {
    void* const function =
        dlsym(RTLD_NEXT, "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint");
    if (function == nullptr) {
        std::fputs("QBackingStore::flush is not where it was\n", stderr);
        std::abort();
    }
    return reinterpret_cast<Flush>(function);
}

} // namespace

// QBackingStore::flush(const QRegion&, QWindow*, const QPoint&), with its object as first argument.
void flush_backing_store(void* store, const void* region, void* window, const void* offset) {
    static const Flush qt_flush = find_qt_flush();
    qt_flush(store, region, window, offset);
    if (flush_observer != nullptr) {
        flush_observer(window);
    }
}
