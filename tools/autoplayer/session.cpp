#include "session.h"

#include <fstream>
#include <sstream>

#include "GameManager.h"
#include "GameStart.h"
#include "InputManager.h"
#include "LogManager.h"
#include "game.h"

std::string configWith(const std::string& settings, const std::filesystem::path& file) {
  std::ifstream in(file);
  std::ostringstream text;
  text << settings << "\n" << in.rdbuf();
  return text.str();
}

std::filesystem::path makePlayFolder(const std::filesystem::path& root,
                                     const std::filesystem::path& source,
                                     const std::string& settings,
                                     const std::filesystem::path& font) {
  const std::filesystem::path play = root / "play";
  std::error_code failed;
  std::filesystem::create_directories(play, failed);
  if (!font.empty() && !failed) {
    std::filesystem::copy_file(font, play / "mv-font.ttf",
                               std::filesystem::copy_options::overwrite_existing, failed);
  }
  for (const char* folder : {"Sprites", "Sounds"}) {
    if (!failed) {
      std::filesystem::create_directory_symlink(source / folder, root / folder, failed);
    }
  }
  std::ofstream config(play / "mv-config.txt");
  config << configWith(settings, source / "play" / "mv-config.txt");
  if (failed || !config) {
    return {};
  }
  return play;
}

int startRustline() {
  mv::GameManager& game = mv::GameManager::getInstance();
  if (game.startUp() != 0) {
    mv::LogManager::getInstance().writeLog("Error starting game manager!");
    game.shutDown();
    return -1;
  }
  setGameBoundary();
  loadResources();
  new GameStart;
  return 0;
}

void stopRustline() {
  mv::InputManager::getInstance().setInputSource(nullptr);
  mv::GameManager::getInstance().shutDown();
}

long residentKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("VmRSS:", 0) == 0) {
      return std::stol(line.substr(6));
    }
  }
  return -1;
}
