// SPDX-License-Identifier: MIT

/* Stands in for libudev where a program looks for serial ports. QSerialPortInfo asks libudev for
 * the devices of the subsystem "tty"; these functions answer with the names in HALVERN_SIM_PORTS,
 * all below /dev and separated by colons, and with no port if it is empty or unset. Linked into a
 * program, or preloaded, they take precedence over the shared library. Questions about any other
 * subsystem find nothing, and udev_silence.cpp answers the rest of the interface, so that other
 * users of libudev in the same process see a machine without devices.
 *
 * The declarations repeat those of libudev's stable interface; its header need not be installed. */

#include <stdlib.h>
#include <string.h>

static const char port_subsystem[] = "tty";
static const char device_folder[] = "/dev/";

/* QSerialPortInfo treats an empty list as a failure and then looks into /sys and /dev by itself. So
 * an empty list holds one device without a parent, which it passes over. */
static const char no_port[] = "/dev/none";

struct udev {
    int references;
};

struct udev_list_entry {
    struct udev_list_entry* next;
    char* name;
};

struct udev_enumerate {
    struct udev* udev;
    int references;
    int about_ports;
    struct udev_list_entry* entries;
};

struct udev_device {
    struct udev* udev;
    int references;
    struct udev_device* parent;
    char* syspath;
};

/* The parent of every simulated port. QSerialPortInfo leaves out ports without a parent. */
static struct udev_device common_parent = {NULL, 1, NULL, NULL};

struct udev* udev_new(void) {
    struct udev* udev = calloc(1, sizeof(struct udev));
    if (udev != NULL) {
        udev->references = 1;
    }
    return udev;
}

struct udev* udev_ref(struct udev* udev) {
    if (udev != NULL) {
        ++udev->references;
    }
    return udev;
}

struct udev* udev_unref(struct udev* udev) {
    if (udev != NULL && --udev->references == 0) {
        free(udev);
    }
    return NULL;
}

/* Appends an entry for the device name of the given length; returns where the next one goes. The
 * device name serves as the entry's path in /sys as well, since nobody looks there. */
static struct udev_list_entry** append_entry(struct udev_list_entry** end, const char* device,
                                             size_t length) {
    struct udev_list_entry* entry = calloc(1, sizeof(struct udev_list_entry));
    char* name = strndup(device, length);
    if (entry == NULL || name == NULL) {
        abort();
    }
    entry->name = name;
    *end = entry;
    return &entry->next;
}

static void free_entries(struct udev_list_entry* entry) {
    while (entry != NULL) {
        struct udev_list_entry* next = entry->next;
        free(entry->name);
        free(entry);
        entry = next;
    }
}

struct udev_enumerate* udev_enumerate_new(struct udev* udev) {
    struct udev_enumerate* enumerate = calloc(1, sizeof(struct udev_enumerate));
    if (enumerate != NULL) {
        enumerate->udev = udev_ref(udev);
        enumerate->references = 1;
    }
    return enumerate;
}

struct udev_enumerate* udev_enumerate_ref(struct udev_enumerate* enumerate) {
    if (enumerate != NULL) {
        ++enumerate->references;
    }
    return enumerate;
}

struct udev_enumerate* udev_enumerate_unref(struct udev_enumerate* enumerate) {
    if (enumerate != NULL && --enumerate->references == 0) {
        free_entries(enumerate->entries);
        udev_unref(enumerate->udev);
        free(enumerate);
    }
    return NULL;
}

struct udev* udev_enumerate_get_udev(struct udev_enumerate* enumerate) {
    return enumerate != NULL ? enumerate->udev : NULL;
}

int udev_enumerate_add_match_subsystem(struct udev_enumerate* enumerate, const char* subsystem) {
    if (enumerate != NULL && subsystem != NULL && strcmp(subsystem, port_subsystem) == 0) {
        enumerate->about_ports = 1;
    }
    return 0;
}

int udev_enumerate_scan_devices(struct udev_enumerate* enumerate) {
    if (enumerate == NULL || !enumerate->about_ports) {
        return 0;
    }
    free_entries(enumerate->entries);
    enumerate->entries = NULL;

    struct udev_list_entry** end = &enumerate->entries;
    const char* rest = getenv("HALVERN_SIM_PORTS");
    while (rest != NULL && *rest != '\0') {
        const size_t length = strcspn(rest, ":");
        if (length > 0) {
            end = append_entry(end, rest, length);
        }
        rest += length + (rest[length] == ':' ? 1 : 0);
    }
    if (enumerate->entries == NULL) {
        append_entry(end, no_port, sizeof no_port - 1);
    }
    return 0;
}

struct udev_list_entry* udev_enumerate_get_list_entry(struct udev_enumerate* enumerate) {
    return enumerate != NULL ? enumerate->entries : NULL;
}

struct udev_list_entry* udev_list_entry_get_next(struct udev_list_entry* entry) {
    return entry != NULL ? entry->next : NULL;
}

const char* udev_list_entry_get_name(struct udev_list_entry* entry) {
    return entry != NULL ? entry->name : NULL;
}

struct udev_device* udev_device_new_from_syspath(struct udev* udev, const char* syspath) {
    if (syspath == NULL || strncmp(syspath, device_folder, sizeof device_folder - 1) != 0) {
        return NULL;
    }
    struct udev_device* device = calloc(1, sizeof(struct udev_device));
    char* copy = strdup(syspath);
    if (device == NULL || copy == NULL) {
        abort();
    }
    device->udev = udev_ref(udev);
    device->references = 1;
    device->parent = strcmp(syspath, no_port) != 0 ? &common_parent : NULL;
    device->syspath = copy;
    return device;
}

struct udev_device* udev_device_ref(struct udev_device* device) {
    if (device != NULL) {
        ++device->references;
    }
    return device;
}

struct udev_device* udev_device_unref(struct udev_device* device) {
    if (device != NULL && device != &common_parent && --device->references == 0) {
        udev_unref(device->udev);
        free(device->syspath);
        free(device);
    }
    return NULL;
}

struct udev* udev_device_get_udev(struct udev_device* device) {
    return device != NULL ? device->udev : NULL;
}

struct udev_device* udev_device_get_parent(struct udev_device* device) {
    return device != NULL ? device->parent : NULL;
}

const char* udev_device_get_syspath(struct udev_device* device) {
    return device != NULL ? device->syspath : NULL;
}

const char* udev_device_get_devnode(struct udev_device* device) {
    return device != NULL ? device->syspath : NULL;
}

/* The name below /dev, such as "pts/7": QSerialPort opens /dev/pts/7 for it. */
const char* udev_device_get_sysname(struct udev_device* device) {
    if (device == NULL || device->syspath == NULL) {
        return NULL;
    }
    return device->syspath + sizeof device_folder - 1;
}

const char* udev_device_get_subsystem(struct udev_device* device) {
    return device != NULL && device != &common_parent ? port_subsystem : NULL;
}

const char* udev_device_get_driver(struct udev_device* device) {
    return device == &common_parent ? "halvern-sim" : NULL;
}

const char* udev_device_get_property_value(struct udev_device* device, const char* key) {
    (void)device;
    (void)key;
    return NULL;
}
