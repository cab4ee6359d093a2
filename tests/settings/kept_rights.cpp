// SPDX-License-Identifier: MIT

#include "tests/settings/kept_rights.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

Full_Disk::Full_Disk(qint64 bytes) {
    getrlimit(RLIMIT_FSIZE, &earlier);
    rlimit now = earlier;
    now.rlim_cur = static_cast<rlim_t>(bytes);
    if (setrlimit(RLIMIT_FSIZE, &now) != 0) {
        qFatal("the length of files can't be limited");
    }
}

Full_Disk::~Full_Disk() { setrlimit(RLIMIT_FSIZE, &earlier); }

namespace {

bool fails_to_synchronise = false;

} // namespace

/// Replaces the system's function: the product's call finds this definition first.
extern "C" int fsync(int descriptor) {
    if (fails_to_synchronise) {
        errno = ENOSPC;
        return -1;
    }
    return static_cast<int>(syscall(SYS_fsync, descriptor));
}

Late_Full_Disk::Late_Full_Disk() { fails_to_synchronise = true; }

Late_Full_Disk::~Late_Full_Disk() { fails_to_synchronise = false; }

void ignore_full_disk_signal() { std::signal(SIGXFSZ, SIG_IGN); }

namespace {

using Capabilities = __user_cap_data_struct[2];

void get_capabilities(Capabilities& capabilities) {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    if (syscall(SYS_capget, &header, &capabilities) != 0) {
        qFatal("the program's rights can't be read");
    }
}

void set_capabilities(const Capabilities& capabilities) {
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    if (syscall(SYS_capset, &header, &capabilities) != 0) {
        qFatal("the program's rights can't be set");
    }
}

const char* collected_category = nullptr;
QStringList collected_lines;
QtMessageHandler earlier_handler = nullptr;

void hear(QtMsgType type, const QMessageLogContext& context, const QString& line) {
    if (qstrcmp(context.category, collected_category) == 0) {
        collected_lines.append(line);
    } else {
        earlier_handler(type, context, line);
    }
}

} // namespace

Plain_Rights::Plain_Rights() {
    Capabilities capabilities = {};
    get_capabilities(capabilities);
    for (int word = 0; word < 2; ++word) {
        effective[word] = capabilities[word].effective;
        capabilities[word].effective = 0;
    }
    set_capabilities(capabilities);
}

Plain_Rights::~Plain_Rights() {
    Capabilities capabilities = {};
    get_capabilities(capabilities);
    for (int word = 0; word < 2; ++word) {
        capabilities[word].effective = effective[word];
    }
    set_capabilities(capabilities);
}

gid_t another_group() {
    if (geteuid() == 0) {
        return 4321;
    }
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(getgroups(0, nullptr), 0)));
    const int count = getgroups(static_cast<int>(groups.size()), groups.data());
    for (int i = 0; i < count; ++i) {
        if (groups[static_cast<std::size_t>(i)] != getegid()) {
            return groups[static_cast<std::size_t>(i)];
        }
    }
    return getegid();
}

Collected_Diagnostics::Collected_Diagnostics(const char* category) {
    collected_category = category;
    collected_lines.clear();
    earlier_handler = qInstallMessageHandler(hear);
}

Collected_Diagnostics::~Collected_Diagnostics() { qInstallMessageHandler(earlier_handler); }

QStringList Collected_Diagnostics::lines() { return collected_lines; }
