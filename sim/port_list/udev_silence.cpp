// SPDX-License-Identifier: MIT

// The rest of libudev's interface, in addition to udev_port_list.c: there is nothing to find, to
// watch or to report. The shared library must not get the objects that udev_port_list.c returns, so
// every function that takes one is here. Monitors, queues and hardware tables are never created,
// and the library's own functions for those accept a null pointer.
//
// C++ for its parameters without names; nothing of its library is used.

#include <cerrno>
#include <sys/types.h>

extern "C" {

struct udev;
struct udev_device;
struct udev_enumerate;
struct udev_hwdb;
struct udev_list_entry;
struct udev_monitor;
struct udev_queue;

void udev_set_log_fn(udev*, void*) {}

int udev_get_log_priority(udev*) { return 0; }

void udev_set_log_priority(udev*, int) {}

void* udev_get_userdata(udev*) { return nullptr; }

void udev_set_userdata(udev*, void*) {}

udev_monitor* udev_monitor_new_from_netlink(udev*, const char*) { return nullptr; }

udev_queue* udev_queue_new(udev*) { return nullptr; }

udev_hwdb* udev_hwdb_new(udev*) { return nullptr; }

udev_list_entry* udev_list_entry_get_by_name(udev_list_entry*, const char*) { return nullptr; }

const char* udev_list_entry_get_value(udev_list_entry*) { return nullptr; }

// Devices from elsewhere.

udev_device* udev_device_new_from_devnum(udev*, char, dev_t) { return nullptr; }

udev_device* udev_device_new_from_subsystem_sysname(udev*, const char*, const char*) {
    return nullptr;
}

udev_device* udev_device_new_from_device_id(udev*, const char*) { return nullptr; }

udev_device* udev_device_new_from_environment(udev*) { return nullptr; }

// Properties that a port does not have.

udev_device* udev_device_get_parent_with_subsystem_devtype(udev_device*, const char*, const char*) {
    return nullptr;
}

const char* udev_device_get_action(udev_device*) { return nullptr; }

const char* udev_device_get_devpath(udev_device*) { return nullptr; }

const char* udev_device_get_devtype(udev_device*) { return nullptr; }

const char* udev_device_get_sysnum(udev_device*) { return nullptr; }

dev_t udev_device_get_devnum(udev_device*) { return 0; }

int udev_device_get_is_initialized(udev_device*) { return 1; }

unsigned long long udev_device_get_seqnum(udev_device*) { return 0; }

unsigned long long udev_device_get_usec_since_initialized(udev_device*) { return 0; }

udev_list_entry* udev_device_get_devlinks_list_entry(udev_device*) { return nullptr; }

udev_list_entry* udev_device_get_properties_list_entry(udev_device*) { return nullptr; }

udev_list_entry* udev_device_get_tags_list_entry(udev_device*) { return nullptr; }

udev_list_entry* udev_device_get_current_tags_list_entry(udev_device*) { return nullptr; }

udev_list_entry* udev_device_get_sysattr_list_entry(udev_device*) { return nullptr; }

const char* udev_device_get_sysattr_value(udev_device*, const char*) { return nullptr; }

int udev_device_set_sysattr_value(udev_device*, const char*, const char*) { return -EPERM; }

int udev_device_has_tag(udev_device*, const char*) { return 0; }

int udev_device_has_current_tag(udev_device*, const char*) { return 0; }

// Narrower searches: they are accepted, but change nothing.

int udev_enumerate_add_nomatch_subsystem(udev_enumerate*, const char*) { return 0; }

int udev_enumerate_add_match_sysattr(udev_enumerate*, const char*, const char*) { return 0; }

int udev_enumerate_add_nomatch_sysattr(udev_enumerate*, const char*, const char*) { return 0; }

int udev_enumerate_add_match_property(udev_enumerate*, const char*, const char*) { return 0; }

int udev_enumerate_add_match_sysname(udev_enumerate*, const char*) { return 0; }

int udev_enumerate_add_match_tag(udev_enumerate*, const char*) { return 0; }

int udev_enumerate_add_match_parent(udev_enumerate*, udev_device*) { return 0; }

int udev_enumerate_add_match_is_initialized(udev_enumerate*) { return 0; }

int udev_enumerate_add_syspath(udev_enumerate*, const char*) { return 0; }

int udev_enumerate_scan_subsystems(udev_enumerate*) { return 0; }

} // extern "C"
