// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The font of all texts. The forms have fixed sizes and were drawn for "Segoe UI" at 9 points, so
/// the program chooses the font itself: what a desktop has as its own is up to a fifth wider.

/// The families in which every text fits its place, the best first.
[[nodiscard]] const QStringList& fitting_text_families();

/// The first installed one of the fitting families. Without any it is the desktop's own family, in
/// which some captions may be cut.
[[nodiscard]] QString find_text_family();

/// Makes a family the application's font, at the size of the forms. It also stands in for the
/// families that forms and message boxes name, where these are not installed.
void use_text_family(const QString& family);

/// Keeps the application's font as it is now until the application ends. Some desktop themes
/// (qt6ct, for one) set their own font once the event loop runs, and again whenever the user
/// changes it.
void keep_text_font();
