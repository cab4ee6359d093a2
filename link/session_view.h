// SPDX-License-Identifier: MIT

#pragma once

#include "link/reply_handler.h"

/// Everything that a session needs from the window. Nothing here reads a device.
class Session_View : public Reply_Handler {
public:
    virtual void set_disconnected_indicator() = 0;
    /// Whether the indicator shows a switch that has answered.
    [[nodiscard]] virtual bool shows_connected() const = 0;
    /// Disables all controls that need a connected switch.
    virtual void disable_controls() = 0;
    virtual void clear_terminal() = 0;
    /// Removes the custom entries from the resolution lists, before they are read again.
    virtual void remove_custom_setting_items() = 0;
    /// The network link now uses the adapter with this dotted address.
    virtual void show_adapter(const QString& address) = 0;
    /// The window cannot continue: shows why and ends the process with exit status 1.
    virtual void end_process(const QString& reason) = 0;
};
