// Starting Rustline for a player of our own: as the game's entry does, but
// without the splash run, in a working directory and with settings that the
// caller picks.
#pragma once

#include <filesystem>
#include <string>

// The configuration text of `file` with `settings` in front. The first entry
// of a key wins, so these override the file's; a missing file adds nothing.
std::string configWith(const std::string& settings, const std::filesystem::path& file);

// Makes `root`/play a working directory for the game, and answers it: its
// configuration is `source`/play/mv-config.txt with `settings` in front, its
// font a copy of `font` (none if empty), and `root`/Sprites and `root`/Sounds
// lead to the game's own files in `source`. Empty if any of it failed.
std::filesystem::path makePlayFolder(const std::filesystem::path& root,
                                     const std::filesystem::path& source,
                                     const std::string& settings,
                                     const std::filesystem::path& font);

// Starts the engine in the working directory, gives the world the game's
// size, loads the game's files and builds the start screen. 0; or -1, with
// the reason in the log, after stopping what had started.
int startRustline();

// Stops the engine, and gives input back to the window.
void stopRustline();

// The resident memory of this process in kilobytes, from /proc/self/status;
// -1 if it can't be read.
long residentKilobytes();
