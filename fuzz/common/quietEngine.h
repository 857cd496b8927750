// What every fuzz target starts with: audio that plays into nothing, and a log
// whose every line is formatted, at every level, and thrown away, so that the
// formatting is searched too without filling a disk.
#pragma once

namespace mv_fuzz {

void startQuietLog();

}  // namespace mv_fuzz
