// SPDX-License-Identifier: MIT

#pragma once

class Audio_Panel;
class Configuration_Page;
class Layout_Page;
class Mouse_Speed_Page;

/// The pages of one window, for what reads or fills them all.
struct Pages {
    Configuration_Page& configuration;
    Mouse_Speed_Page& mouse_speed;
    Layout_Page& layout;
    /// Null on a model without audio.
    Audio_Panel* audio;
};
