// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

/// Runs a program in a private network namespace, where broadcasts stay on the loopback and
/// every port is free: starts the same program again under unshare(1), with the loopback up and
/// 255.255.255.255 routed to it. All addresses of 127.0.0.0/8 can be had there.
///
/// Where no such network can be made, the program fails: it is never run on the machine's own.
///
/// @param run the program proper, run in the private network only.
/// @return the program's exit code, or 1 if there is no private network.
int run_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run);

/// The same for a Qt test. Where the system refuses such networks, each of the test's functions is
/// told as skipped, by name and with the reason, and none is run.
/// @param run must hand its arguments to QTest::qExec(), which is asked for the names with them.
int run_test_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run);

/// For a Qt test whose child processes make private networks: run where that can be done, told
/// as skipped elsewhere.
int run_test_of_private_networks(int argc, char** argv, const std::function<int(int, char**)>& run);

/// Why the system refuses such networks; empty where they can be made, and where the tools that
/// make them are missing.
std::string private_network_refusal();
