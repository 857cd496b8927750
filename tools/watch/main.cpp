// Watches a game that a host shows over the network, in a window of the
// host's screen, until Escape or Q, or until the host ends:
//
//     morvane_watch HOST[:PORT]
//
// The port is 7171 unless one is given. The watcher has no sounds of its
// own, so it plays none; a game's own program can watch with its sounds.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "WatchView.h"
#include "watchMessages.h"

int main(int argc, char* argv[]) {
  std::string host;
  int port = 0;
  if (argc != 2 || !mv::parseWatchAddress(argv[1], host, port)) {
    std::fprintf(stderr, "usage: morvane_watch HOST[:PORT]\n");
    return 2;
  }
  // The font lives in the build folder, and so does the watcher's log.
  std::filesystem::current_path(MORVANE_FONT_DIRECTORY);
  setenv("MORVANE_LOG", "morvane-watch.log", 0);
  return mv::watchGame(host, port);
}
