// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// The resources that this process uses at one moment.
struct Resource_Counts {
    int descriptors = 0; ///< open, in /proc/self/fd
    int objects = 0;     ///< living QObjects, in all threads, with or without a parent
    int widgets = 0;     ///< QApplication::allWidgets()
    int children = 0;    ///< QObjects below the top-level widgets and the application
    qint64 heap = 0;     ///< bytes in use, without the allocator's own reserves
    qint64 resident = 0; ///< bytes of VmRSS, for information
};

/// Starts the count of QObjects for count_resources(). To be called first in main().
void count_objects();

Resource_Counts count_resources();
