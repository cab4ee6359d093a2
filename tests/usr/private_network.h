#pragma once

#include <functional>

/// Runs a test program in a network namespace of its own, where broadcasts stay on the loopback and
/// every port is free: starts the same program anew under unshare(1), with the loopback up and
/// 255.255.255.255 routed to it. All addresses of 127.0.0.0/8 can be had there.
///
/// Where no such network can be made, the test fails: it is never run on the machine's own.
///
/// @param run the test proper, run in the private network only.
/// @return the test's exit code, or 1 if there is no private network.
int run_in_private_network(int argc, char** argv, const std::function<int(int, char**)>& run);
