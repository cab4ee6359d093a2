// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// The font of all texts. The forms have fixed sizes and were drawn for "Segoe UI" at 9 points. So
/// the program chooses the font itself: the font of a desktop can be up to a fifth wider.

/// The families with which every text fits its place, in order of preference.
[[nodiscard]] const QStringList& fitting_text_families();

/// The first of these families that is installed. If none is, the family of the desktop, with which
/// some captions may be cut.
[[nodiscard]] QString find_text_family();

/// Makes a family the application's font, at the size of the forms. It also replaces the families
/// that forms and message boxes name, if these are not installed.
void use_text_family(const QString& family);

/// Keeps the application's font as it is now until the application ends. Some desktop themes
/// (qt6ct, for one) set their own font once the event loop runs, and again whenever the user
/// changes it.
void keep_text_font();
