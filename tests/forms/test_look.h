#pragma once

/// Fixes what a desktop would decide, so that sizes are the same everywhere: the Fusion style and
/// DejaVu Sans 9 pt, also in place of "Segoe UI Emoji". False if that font is not installed.
bool use_test_look();
