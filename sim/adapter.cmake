# SPDX-License-Identifier: MIT
# Simulated serial-to-Ethernet adapters: for tests, and as a program of its own.
halvern_library(halvern_sim_adapter MOC
  SOURCES
    adapter_bytes.cpp adapter_bytes.h
    adapter_network.cpp adapter_network.h
    adapter_options.cpp adapter_options.h
    adapter_state.h
    switch_behind_adapter.cpp switch_behind_adapter.h
    adapter_logic.cpp adapter_logic.h
    simulated_adapter.cpp simulated_adapter.h
  LINK halvern_sim Qt6::Core Qt6::Network ${CMAKE_DL_LIBS})

add_executable(halvern-sim-adapter halvern_sim_adapter.cpp)
target_link_libraries(halvern-sim-adapter PRIVATE halvern_sim_adapter halvern_options)
add_dependencies(halvern-sim-adapter halvern_loopback_network)
