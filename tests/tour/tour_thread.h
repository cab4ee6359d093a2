// SPDX-License-Identifier: MIT

#pragma once

/// Starts the stage named in HALVERN_TOUR_STAGE in its own thread. To be called as soon as the
/// program's application object exists. Pictures and the settings file go to the folder
/// HALVERN_TOUR_FOLDER.
void begin_tour();
