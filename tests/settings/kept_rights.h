// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <sys/resource.h>
#include <sys/types.h>

/// A disk that accepts no file above this number of bytes, for the lifetime of an object. Needs
/// ignore_full_disk_signal().
class Full_Disk {
public:
    explicit Full_Disk(qint64 bytes);
    ~Full_Disk();
    Full_Disk(const Full_Disk&) = delete;
    Full_Disk& operator=(const Full_Disk&) = delete;

private:
    rlimit earlier = {};
};

/// A disk that reports only at synchronisation that it is full, for the lifetime of an object.
class Late_Full_Disk {
public:
    Late_Full_Disk();
    ~Late_Full_Disk();
    Late_Full_Disk(const Late_Full_Disk&) = delete;
    Late_Full_Disk& operator=(const Late_Full_Disk&) = delete;
};

/// A write beyond the limit fails from now on, instead of ending the program.
void ignore_full_disk_signal();

/// The rights of a plain user for the lifetime of an object: root too must then obey the modes of
/// files and folders.
class Plain_Rights {
public:
    Plain_Rights();
    ~Plain_Rights();
    Plain_Rights(const Plain_Rights&) = delete;
    Plain_Rights& operator=(const Plain_Rights&) = delete;

private:
    unsigned int effective[2] = {};
};

/// A group that files can be given and that new files do not have; the user's own if there is none.
gid_t another_group();

/// Records a logging category for the lifetime of an object; other categories are printed as usual.
class Collected_Diagnostics {
public:
    explicit Collected_Diagnostics(const char* category);
    ~Collected_Diagnostics();
    Collected_Diagnostics(const Collected_Diagnostics&) = delete;
    Collected_Diagnostics& operator=(const Collected_Diagnostics&) = delete;

    [[nodiscard]] static QStringList lines();
};
