// SPDX-License-Identifier: MIT

#include "tests/link/failing_read.h"

#include <cerrno>
#include <dlfcn.h>
#include <unistd.h>

namespace {

int failing_descriptor = -1;
int failures = 0;

} // namespace

extern "C" ssize_t read(int descriptor, void* bytes, size_t size) {
    if (descriptor == failing_descriptor) {
        ++failures;
        errno = EIO;
        return -1;
    }
    using Read = ssize_t (*)(int, void*, size_t);
    static const auto next = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "read"));
    return next(descriptor, bytes, size);
}

Failing_Read::Failing_Read(int descriptor) {
    failing_descriptor = descriptor;
    failures = 0;
}

Failing_Read::~Failing_Read() { failing_descriptor = -1; }

int Failing_Read::count() const { return failures; }
