// SPDX-License-Identifier: MIT

/* Preloaded into Wine: the far end of a pseudo-terminal gets the modem lines that a serial port
 * has, with a device switched on at the other end. Without them Wine does not accept it as a serial
 * port.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdarg.h>
#include <stdbool.h>
#include <stddef.h>
#include <sys/ioctl.h>
#include <termios.h>

typedef int (*ioctl_function)(int, unsigned long, ...);

/* A terminal, but not the near end of a pseudo-terminal, which alone has a number. */
static bool is_far_end(ioctl_function real_ioctl, int descriptor) {
    struct winsize size;
    unsigned number;
    return real_ioctl(descriptor, TIOCGWINSZ, &size) == 0 &&
           real_ioctl(descriptor, TIOCGPTN, &number) == -1;
}

int ioctl(int descriptor, unsigned long request, ...) {
    static ioctl_function real_ioctl;
    if (real_ioctl == NULL) {
        real_ioctl = (ioctl_function)dlsym(RTLD_NEXT, "ioctl");
    }
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);

    const int result = real_ioctl(descriptor, request, argument);
    const bool asks = request == TIOCMGET;
    const bool sets = request == TIOCMSET || request == TIOCMBIS || request == TIOCMBIC;
    if (result == 0 || !(asks || sets) || !is_far_end(real_ioctl, descriptor)) {
        return result;
    }
    if (asks) {
        *(int*)argument = TIOCM_CTS | TIOCM_DSR | TIOCM_CAR;
    }
    errno = 0;
    return 0;
}
