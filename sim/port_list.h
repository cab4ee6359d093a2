// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// The list of serial ports that a process sees instead of the machine's ports. It is read each
/// time that the ports are listed, see port_list/udev_port_list.c.

/// The environment variable: device names, separated by colons. Unset or empty means no port.
inline constexpr char port_list_variable[] = "HALVERN_SIM_PORTS";

/// The file of the library to preload into an unmodified program.
inline constexpr char port_list_library[] = "libhalvern_port_list.so";

/// Sets the list for this process, which must have the simulated list linked in, and for the
/// children it starts from now on.
/// @param device_names such as "/dev/pts/7", in the order in which they are to be listed.
void list_ports(const QStringList& device_names);

/// The value of the variable for such a list.
QByteArray port_list_value(const QStringList& device_names);

/// The environment in which an unmodified program sees just these ports: `base` with the variable,
/// and with the library before any other preloaded libraries.
QProcessEnvironment environment_with_ports(const QProcessEnvironment& base,
                                           const QStringList& device_names,
                                           const QString& library_path);
