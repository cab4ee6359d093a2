// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

/// Runs a program in a private network namespace, where broadcasts stay on the loopback and every
/// port is free: starts the same program again under unshare(1), with the loopback up and
/// 255.255.255.255 routed to it. All addresses of 127.0.0.0/8 are available there.
///
/// If no such network can be created, the program fails: it never runs in the machine's own
/// network.
///
/// @param run the program itself, run in the private network only.
/// @return the program's exit code, or 1 if there is no private network.
int run_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run);

/// The same for a Qt test. If the system refuses such networks, each of the test's functions is
/// reported as skipped, by name and with the reason, and none is run.
/// @param run must pass its arguments to QTest::qExec(), which prints the names.
int run_test_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run);

/// For a Qt test whose child processes create private networks: runs it if that is possible,
/// otherwise reports it as skipped.
int run_test_of_private_networks(int argc, char** argv, const std::function<int(int, char**)>& run);

/// Why the system refuses such networks; empty if they can be created, and if the tools for that
/// are missing.
std::string private_network_refusal();
