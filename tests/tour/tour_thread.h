// SPDX-License-Identifier: MIT

#pragma once

/// Begins the stage named in HALVERN_TOUR_STAGE in a thread of its own. To be called as soon as the
/// program's application object is there. Pictures and the settings file go to the folder
/// HALVERN_TOUR_FOLDER.
void begin_tour();
