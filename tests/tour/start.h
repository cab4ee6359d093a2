#pragma once

#include "tests/tour/visitor.h"

#include <QString>

/// Names the model in the dialog that the program begins with.
void pick_model(Visitor& visitor, const QString& radio_button);

/// The wizard's way to the serial line.
void take_serial_road(Visitor& visitor);

/// The wizard's way through an adapter of the network, from the method dialog on.
/// @param address of the adapter.
void take_network_road(Visitor& visitor, const QString& address);
