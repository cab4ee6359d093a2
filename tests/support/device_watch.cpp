// SPDX-License-Identifier: MIT

#include "tests/support/device_watch.h"

#include <QFile>

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

Device_Watch::Device_Watch(const QString& device_name)
    : watcher(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (inotify_add_watch(watcher, QFile::encodeName(device_name).constData(), IN_OPEN | IN_CLOSE) <
        0) {
        qFatal("Cannot watch %s", qPrintable(device_name));
    }
}

Device_Watch::~Device_Watch() { ::close(watcher); }

QStringList Device_Watch::events() const {
    QStringList words;
    std::array<char, 4096> block = {};
    for (;;) {
        const ssize_t count = ::read(watcher, block.data(), block.size());
        if (count <= 0) {
            return words;
        }
        std::size_t offset = 0;
        while (offset < static_cast<std::size_t>(count)) {
            // Events of a single file contain no name, so all have the same size.
            inotify_event event = {};
            std::memcpy(&event, block.data() + offset, sizeof event);
            words.append((event.mask & IN_OPEN) != 0 ? "open" : "close");
            offset += sizeof event + event.len;
        }
    }
}
