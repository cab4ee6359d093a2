// SPDX-License-Identifier: MIT

#include "tests/robustness/resource_counts.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

#include <atomic>
#include <cstddef>
#include <malloc.h>

#ifdef HALVERN_ADDRESS_SANITIZER
// As sanitizer/allocator_interface.h has it, which comes with clang only.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

// Qt calls the functions set here for each QObject created or destroyed; they are meant for
// debuggers.
extern "C" Q_DECL_IMPORT quintptr qtHookData[];

namespace {

enum Hook { data_version = 0, add_object = 3, remove_object = 4 };

std::atomic<int> living_objects = 0;

void count_in(QObject*) { ++living_objects; }

void count_out(QObject*) { --living_objects; }

qint64 used_heap() {
#ifdef HALVERN_ADDRESS_SANITIZER
    // The sanitizer's allocator replaces the C library's, whose figures are then empty.
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
#endif
}

qint64 resident_memory() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) {
        return -1;
    }
    constexpr qint64 kilobyte = 1024;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.simplified().split(' ').value(1).toLongLong() * kilobyte;
        }
    }
    return -1;
}

} // namespace

void count_objects() {
    if (qtHookData[data_version] < 1) {
        qFatal("this Qt does not tell of its objects");
    }
    qtHookData[add_object] = reinterpret_cast<quintptr>(&count_in);
    qtHookData[remove_object] = reinterpret_cast<quintptr>(&count_out);
}

Resource_Counts count_resources() {
    Resource_Counts resource_counts;
    resource_counts.objects = living_objects;
    resource_counts.widgets = static_cast<int>(QApplication::allWidgets().size());
    resource_counts.children = static_cast<int>(qApp->findChildren<QObject*>().size());
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        resource_counts.children += static_cast<int>(window->findChildren<QObject*>().size()) + 1;
    }
    const QStringList descriptors =
        QDir("/proc/self/fd").entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    // The folder itself is open while it is read.
    resource_counts.descriptors = static_cast<int>(descriptors.size()) - 1;
    resource_counts.resident = resident_memory();
    resource_counts.heap = used_heap();
    return resource_counts;
}
